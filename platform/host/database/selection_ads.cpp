// The selection functions of the host interface.
#include <algorithm>
#include <optional>
#include <string>

#include "acedsel.h"
#include "base/case_folding.h"
#include "dbapserv.h"
#include "platform/host/database/entity_selector.h"
#include "platform/host/database/selection_prompt.h"

namespace {

/// The second half of a selection set's name; that of an entity's name is 0.
constexpr Adesk::LongPtr set_mark = 1;

/// The set's name: an id of its drawing with the set's number, and the mark.
void name_set(host::DatabaseStore& store, host::SelectionSet set, ads_name name) {
    const uint32_t number = store.selections().put(std::move(set));
    name[0] = store.id(host::ObjectSpace::record, number).asOldId();
    name[1] = set_mark;
}

host::DatabaseStore* store_of_set(const ads_name name) {
    return name[1] == set_mark ? host::store_of(AcDbObjectId().setFromOldId(name[0])) : nullptr;
}

host::SelectionSet* set_named(const ads_name name) {
    host::DatabaseStore* const store = name == nullptr ? nullptr : store_of_set(name);
    return store == nullptr ? nullptr
                            : store->selections().at(host::address_of(AcDbObjectId().setFromOldId(name[0])).number);
}

host::DatabaseStore* working_store() {
    const AcDbDatabase* const drawing = acdbHostApplicationServices()->workingDatabase();
    return drawing == nullptr ? nullptr : &drawing->store();
}

std::optional<AcGePoint3d> point_at(const void* argument) {
    const auto* const point = static_cast<const ads_real*>(argument);
    return point == nullptr ? std::nullopt : std::optional(AcGePoint3d(point[0], point[1], point[2]));
}

/// A mode string: what to select, and after ":" how the question behaves.
struct Mode {
    std::wstring method;
    bool single = false;
};

Mode read_mode(const ACHAR* text) {
    Mode mode;
    const std::wstring words = text == nullptr ? std::wstring() : base::lower(text);
    const size_t colon = std::min(words.find(L':'), words.size());
    mode.method = words.substr(0, colon);
    std::erase_if(mode.method, [](wchar_t letter) { return letter == L'_' || letter == L'+'; });
    mode.single = words.find(L":s") != std::wstring::npos;
    return mode;
}

std::vector<dxf::RecordId> accepted(std::vector<dxf::RecordId> found, const host::SelectionFilter& filter,
                                    const dxf::Drawing& drawing) {
    std::erase_if(found, [&](dxf::RecordId record) { return !filter.accepts(drawing, record); });
    return found;
}

/// The selections that need no question. Nothing for an unknown method or missing points.
std::optional<std::vector<dxf::RecordId>> select_by(const std::wstring& method, const void* pt1, const void* pt2,
                                                    host::EntitySelector& selector, const host::SelectionFilter& filter,
                                                    const dxf::Drawing& drawing) {
    const auto one = point_at(pt1);
    const auto other = point_at(pt2);
    if (method == L"a" || method == L"all") {
        return selector.all(filter);
    }
    if (method == L"x") {
        return selector.whole_drawing(filter);
    }
    if (method == L"l") {
        return accepted(selector.last(), filter, drawing);
    }
    if (method == L"p") {
        return accepted(selector.previous(), filter, drawing);
    }
    if (method.empty() && one) {
        return accepted(selector.at_point(*one), filter, drawing);
    }
    if ((method == L"w" || method == L"c") && one && other) {
        return accepted(method == L"w" ? selector.in_window(*one, *other) : selector.crossing(*one, *other), filter,
                        drawing);
    }
    return std::nullopt;
}

int ask_user(host::DatabaseStore& store, host::EntitySelector& selector, const host::SelectionFilter& filter,
             bool single, ads_name set) {
    host::SelectionPrompt prompt(selector, filter, store.drawing(), host::person(), single);
    if (!prompt.ask()) {
        return RTCAN;
    }
    if (prompt.selected().empty()) {
        return RTERROR;
    }
    store.selections().previous = prompt.selected().records();
    name_set(store, prompt.selected(), set);
    return RTNORM;
}

}  // namespace

int acedSSGet(const ACHAR* mode, const void* pt1, const void* pt2, const struct resbuf* filter, ads_name set) {
    host::DatabaseStore* const store = working_store();
    if (set == nullptr || store == nullptr) {
        return RTERROR;
    }
    ads_name_clear(set);
    const auto conditions = host::SelectionFilter::parse(filter, store->drawing());
    if (!conditions) {
        return RTERROR;
    }
    const Mode how = read_mode(mode);
    host::EntitySelector selector(*store);
    if (how.method.empty() && pt1 == nullptr) {
        return ask_user(*store, selector, *conditions, how.single, set);
    }
    auto found = select_by(how.method, pt1, pt2, selector, *conditions, store->drawing());
    if (!found || found->empty()) {
        return RTERROR;
    }
    name_set(*store, host::SelectionSet(*std::move(found)), set);
    return RTNORM;
}

int acedSSLength(const ads_name set, long* length) {
    const host::SelectionSet* const selected = set_named(set);
    if (length == nullptr) {
        return RTERROR;
    }
    *length = selected == nullptr ? 0 : static_cast<long>(selected->records().size());
    return selected == nullptr ? RTERROR : RTNORM;
}

int acedSSName(const ads_name set, long index, ads_name entity) {
    const host::SelectionSet* const selected = set_named(set);
    if (selected == nullptr || index < 0 || static_cast<size_t>(index) >= selected->records().size()) {
        return RTERROR;
    }
    entity[0] = store_of_set(set)->id_of_record(selected->records()[static_cast<size_t>(index)]).asOldId();
    entity[1] = 0;
    return RTNORM;
}

int acedSSFree(const ads_name set) {
    if (set_named(set) == nullptr) {
        return RTERROR;
    }
    store_of_set(set)->selections().free(host::address_of(AcDbObjectId().setFromOldId(set[0])).number);
    return RTNORM;
}
