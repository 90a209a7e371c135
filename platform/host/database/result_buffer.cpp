#include "platform/host/database/result_buffer.h"

#include <memory>
#include <new>

#include "acdbads.h"
#include "acutads.h"
#include "dbmain.h"
#include "platform/host/database/database_store.h"

namespace host {
namespace {

struct CodeRange {
    short first;
    short last;
    ResultKind kind;
};

/// DXF group codes of result buffers, in ascending order.
constexpr CodeRange code_ranges[] = {
    {-5, -5, ResultKind::name},
    {-4, -4, ResultKind::text},
    {-3, -3, ResultKind::none},
    {-2, -1, ResultKind::name},
    {0, 9, ResultKind::text},
    {10, 17, ResultKind::point},
    {18, 59, ResultKind::real},
    {60, 79, ResultKind::short_integer},
    {90, 99, ResultKind::long_integer},
    {100, 109, ResultKind::text},
    {110, 119, ResultKind::point},
    {140, 149, ResultKind::real},
    {170, 179, ResultKind::short_integer},
    {210, 219, ResultKind::point},
    {270, 289, ResultKind::short_integer},
    {290, 299, ResultKind::short_integer},
    {300, 309, ResultKind::text},
    {310, 319, ResultKind::binary},
    {320, 329, ResultKind::text},
    {330, 369, ResultKind::name},
    {370, 389, ResultKind::short_integer},
    {390, 399, ResultKind::name},
    {400, 409, ResultKind::short_integer},
    {410, 419, ResultKind::text},
    {420, 429, ResultKind::long_integer},
    {430, 439, ResultKind::text},
    {1000, 1003, ResultKind::text},
    {1004, 1004, ResultKind::binary},
    {1005, 1009, ResultKind::text},
    {1010, 1013, ResultKind::point},
    {1040, 1042, ResultKind::real},
    {1070, 1070, ResultKind::short_integer},
    {1071, 1071, ResultKind::long_integer},
};

ResultKind kind_of_type(int type) {
    switch (type) {
        case RTREAL:
        case RTANG:
        case RTORINT:
            return ResultKind::real;
        case RTPOINT:
        case RT3DPOINT:
            return ResultKind::point;
        case RTSHORT:
            return ResultKind::short_integer;
        case RTLONG:
            return ResultKind::long_integer;
        case RTSTR:
        case RTDXF0:
            return ResultKind::text;
        case RTENAME:
        case RTPICKS:
            return ResultKind::name;
        case RTVOID:
        case RTLB:
        case RTLE:
        case RTDOTE:
        case RTNIL:
        case RTT:
            return ResultKind::none;
        default:
            return ResultKind::unknown;
    }
}

}  // namespace

ResultKind kind_of_result(int type) {
    if (type >= RTNONE) {
        return kind_of_type(type);
    }
    for (const CodeRange& range : code_ranges) {
        if (type >= range.first && type <= range.last) {
            return range.kind;
        }
    }
    return ResultKind::unknown;
}

}  // namespace host

struct resbuf* acutNewRb(int type) {
    auto* const buffer = static_cast<struct resbuf*>(acad_calloc(1, sizeof(struct resbuf)));
    if (buffer != nullptr) {
        buffer->restype = static_cast<short>(type);
    }
    return buffer;
}

int acutRelRb(struct resbuf* list) {
    while (list != nullptr) {
        struct resbuf* const next = list->rbnext;
        switch (host::kind_of_result(list->restype)) {
            case host::ResultKind::text:
                acad_free(list->resval.rstring);
                break;
            case host::ResultKind::binary:
                acad_free(list->resval.rbinary.buf);
                break;
            default:
                break;
        }
        acad_free(list);
        list = next;
    }
    return RTNORM;
}

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
