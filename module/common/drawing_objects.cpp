#include "common/drawing_objects.h"

#include <dbapserv.h>
#include <dbmain.h>
#include <dbhandle.h>
#include <dbobjptr.h>
#include <dbsymtb.h>

#include <cwchar>

#include "base/case_folding.h"
#include "common/host_text.h"

namespace corvanes {

namespace {

constexpr int control_string = 102;
constexpr int entry_name = 3;
constexpr int owned_object = 360;
constexpr int soft_pointer = 340;
constexpr int soft_owned_object = 350;
constexpr int extended_handle = 1005;

bool holds(const resbuf& group, const wchar_t* text) {
    return group.resval.rstring != nullptr && std::wcscmp(group.resval.rstring, text) == 0;
}

/// The object that a dictionary holds under a name; null when it has no such name.
AcDbObjectId entry_of(AcDbObjectId dictionary, const wchar_t* name) {
    const ObjectGroups groups(dictionary);
    for (const resbuf* group = groups.first(); group != nullptr && group->rbnext != nullptr; group = group->rbnext) {
        const int next = group->rbnext->restype;
        if (group->restype == entry_name && holds(*group, name) &&
            (next == owned_object || next == soft_owned_object)) {
            return id_in(*group->rbnext);
        }
    }
    return AcDbObjectId::kNull;
}

AcDbObjectId extension_dictionary(AcDbObjectId id) {
    const ObjectGroups groups(id);
    for (const resbuf* group = groups.first(); group != nullptr; group = group->rbnext) {
        if (group->restype == control_string && holds(*group, L"{ACAD_XDICTIONARY")) {
            const resbuf* const dictionary = ObjectGroups::find(group, owned_object);
            return dictionary != nullptr ? id_in(*dictionary) : AcDbObjectId::kNull;
        }
    }
    return AcDbObjectId::kNull;
}

AcDbObjectId told_by_block(AcDbObjectId record) {
    const ObjectGroups groups(record, L"AcDbBlockRepBTag");
    const resbuf* const handle = ObjectGroups::find(groups.first(), extended_handle);
    AcDbDatabase* const database = working_database();
    AcDbObjectId id;
    if (handle == nullptr || handle->resval.rstring == nullptr || database == nullptr ||
        database->getAcDbObjectId(id, false, AcDbHandle(handle->resval.rstring)) != Acad::eOk) {
        return AcDbObjectId::kNull;
    }
    return id;
}

AcDbObjectId told_by_reference(AcDbObjectId reference) {
    const AcDbObjectId dictionary = extension_dictionary(reference);
    const AcDbObjectId representation =
        dictionary.isNull() ? dictionary : entry_of(dictionary, L"AcDbBlockRepresentation");
    const AcDbObjectId data = representation.isNull() ? representation : entry_of(representation, L"AcDbRepData");
    const ObjectGroups groups(data);
    const resbuf* const block = ObjectGroups::find(groups.first(), soft_pointer);
    return block != nullptr ? id_in(*block) : AcDbObjectId::kNull;
}

}  // namespace

ObjectGroups::ObjectGroups(AcDbObjectId id, const wchar_t* application) {
    ads_name name;
    if (id.isNull() || acdbGetAdsName(name, id) != Acad::eOk) {
        return;
    }
    std::wstring wanted = application != nullptr ? application : L"";
    resbuf applications{};
    applications.restype = RTSTR;
    applications.resval.rstring = wanted.data();
    list_.reset(acdbEntGetX(name, application != nullptr ? &applications : nullptr));
}

const resbuf* ObjectGroups::find(const resbuf* from, int code) {
    while (from != nullptr && from->restype != code) {
        from = from->rbnext;
    }
    return from;
}

int ObjectGroups::integer(int code, int fallback) const {
    const resbuf* const group = find(first(), code);
    return group != nullptr ? group->resval.rint : fallback;
}

AcDbObjectId id_in(const resbuf& pointer) {
    AcDbObjectId id;
    ads_name name = {pointer.resval.rlname[0], pointer.resval.rlname[1]};
    return acdbGetObjectId(id, name) == Acad::eOk ? id : AcDbObjectId::kNull;
}

AcDbDatabase* working_database() {
    return acdbHostApplicationServices()->workingDatabase();
}

std::wstring name_of(const AcDbSymbolTableRecord& record) {
    HostText name;
    record.getName(name.place());
    return name.get();
}

std::wstring literal_pattern(const std::wstring& name) {
    std::wstring pattern;
    for (const wchar_t letter : name) {
        if (std::wcschr(L"#@.*?~[]-,`", letter) != nullptr) {
            pattern += L'`';
        }
        pattern += letter;
    }
    return pattern;
}

std::wstring block_name(AcDbObjectId record) {
    const AcDbObjectPointer<AcDbBlockTableRecord> block(record, AcDb::kForRead);
    return block.openStatus() == Acad::eOk ? name_of(*block) : std::wstring();
}

std::vector<std::wstring> block_names() {
    std::vector<std::wstring> names;
    AcDbDatabase* const drawing = working_database();
    if (drawing == nullptr) {
        return names;
    }
    const AcDbObjectPointer<AcDbBlockTable> table(drawing->blockTableId(), AcDb::kForRead);
    AcDbBlockTableIterator* walk = nullptr;
    if (table.openStatus() != Acad::eOk || table->newIterator(walk, true, true) != Acad::eOk) {
        return names;
    }
    const std::unique_ptr<AcDbBlockTableIterator> iterator(walk);
    for (; !iterator->done(); iterator->step(true, true)) {
        AcDbObjectId id;
        iterator->getRecordId(id);
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
        if (block.openStatus() == Acad::eOk) {
            names.push_back(name_of(*block));
        }
    }
    return names;
}

std::optional<std::wstring> dynamic_block_name(AcDbObjectId record, AcDbObjectId reference) {
    const std::wstring own = base::lower(block_name(record));
    if (!own.starts_with(L"*u")) {
        return std::nullopt;
    }
    const AcDbObjectId told = told_by_block(record);
    std::wstring name = block_name(told.isNull() ? told_by_reference(reference) : told);
    return name.empty() ? std::nullopt : std::optional(std::move(name));
}

}  // namespace corvanes
