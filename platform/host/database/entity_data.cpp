// Records as lists of result buffers.
#include <memory>
#include <new>

#include "acdbads.h"
#include "acutads.h"
#include "dbmain.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/result_buffer.h"

namespace {

constexpr int entity_name = -1;
constexpr int extended_data = -3;
constexpr int first_extended_code = 1000;
constexpr int application_name = 1001;
constexpr int embedded_object = 101;

struct ReleaseList {
    void operator()(struct resbuf* list) const { acutRelRb(list); }
};

/// Groups of one record on their way into a list.
class GroupList {
  public:
    GroupList(const host::DatabaseStore& store, const dxf::RecordView& view) : store_(store), view_(view) {}

    void add_name(int code, AcDbObjectId id) {
        struct resbuf& buffer = add(code);
        buffer.resval.rlname[0] = id.asOldId();
    }
    void add_marker(int code) { add(code); }

    void add_group(const dxf::Group& group) {
        if (complete_point(group)) {
            return;
        }
        switch (host::kind_of_result(group.code)) {
            case host::ResultKind::text:
                add(group.code).resval.rstring = acad__strdup(view_.decode(group.value).c_str());
                break;
            case host::ResultKind::real:
                add(group.code).resval.rreal = group.real();
                break;
            case host::ResultKind::point:
                add(group.code).resval.rpoint[X] = group.real();
                break;
            case host::ResultKind::short_integer:
                add(group.code).resval.rint = static_cast<short>(group.integer());
                break;
            case host::ResultKind::long_integer:
                add(group.code).resval.rlong = static_cast<Adesk::Int32>(group.integer());
                break;
            case host::ResultKind::name:
                add_name(group.code, store_.with_handle(group.handle()));
                break;
            default:
                break;
        }
    }

    struct resbuf* release() {
        return first_.release();
    }

  private:
    struct resbuf& add(int code) {
        struct resbuf* const buffer = acutNewRb(code);
        if (buffer == nullptr) {
            throw std::bad_alloc();
        }
        (last_ == nullptr ? last_ : last_->rbnext) = buffer;
        if (first_ == nullptr) {
            first_.reset(buffer);
        }
        last_ = buffer;
        return *buffer;
    }

    /// The y and z of a point follow its x by codes that are 10 and 20 higher.
    bool complete_point(const dxf::Group& group) {
        if (last_ == nullptr || host::kind_of_result(last_->restype) != host::ResultKind::point) {
            return false;
        }
        const int axis = group.code - last_->restype;
        if (axis != 10 && axis != 20) {
            return false;
        }
        last_->resval.rpoint[axis == 10 ? Y : Z] = group.real();
        return true;
    }

    const host::DatabaseStore& store_;
    const dxf::RecordView& view_;
    std::unique_ptr<struct resbuf, ReleaseList> first_;
    struct resbuf* last_ = nullptr;
};

bool wants(const struct resbuf* apps, const std::wstring& name) {
    for (; apps != nullptr; apps = apps->rbnext) {
        const bool text = host::kind_of_result(apps->restype) == host::ResultKind::text;
        if (text && apps->resval.rstring != nullptr && acutWcMatch(name.c_str(), apps->resval.rstring) != 0) {
            return true;
        }
    }
    return false;
}

/// The record's groups up to its first sub-record; embedded objects are left out.
struct resbuf* list_of(const host::DatabaseStore& store, AcDbObjectId id, const dxf::RecordView& view,
                       const struct resbuf* apps) {
    GroupList list(store, view);
    list.add_name(entity_name, id);
    dxf::GroupCursor cursor = view.groups();
    dxf::Group group;
    bool embedded = false;
    bool extended = false;
    bool wanted = false;
    for (bool first = true; cursor.next(group) && (first || group.code != 0); first = false) {
        embedded = group.code < first_extended_code && (embedded || group.code == embedded_object);
        if (group.code == application_name) {
            wanted = wants(apps, view.decode(group.value));
            if (wanted && !extended) {
                list.add_marker(extended_data);
                extended = true;
            }
        }
        if (group.code >= first_extended_code ? wanted : !embedded) {
            list.add_group(group);
        }
    }
    return list.release();
}

}  // namespace

struct resbuf* acdbEntGetX(const ads_name ent, const struct resbuf* apps) {
    AcDbObjectId id;
    if (acdbGetObjectId(id, ent) != Acad::eOk) {
        return nullptr;
    }
    const host::DatabaseStore* const store = host::store_of(id);
    const dxf::RecordId record = store->record_of(host::address_of(id));
    return record == dxf::no_record ? nullptr : list_of(*store, id, store->drawing().view(record), apps);
}
