#include "platform/host/view/display_list.h"

#include <algorithm>

#include "base/code_page.h"

namespace host {

namespace {

constexpr char hand_seed[] = "$HANDSEED";

/// Whether a record says only how many entries a table has, or which handle is the next.
bool only_counts(const dxf::Drawing& drawing, dxf::RecordId id) {
    return drawing.view(id).type() == hand_seed ||
           std::any_of(drawing.tables().begin(), drawing.tables().end(),
                       [id](const dxf::Table& table) { return table.head == id; });
}

/// Whether a new record of this type may change the look of what was there before it.
bool governs_others(const std::wstring& type, bool lacking) {
    const bool header_variable = type.starts_with(L"$") && type != base::wide_from_utf8(hand_seed);
    const bool named = type == L"STYLE" || type == L"BLOCK";
    return header_variable || type == L"LAYER" || type == L"LTYPE" || type == L"DIMSTYLE" || type == L"SORTENTSTABLE" ||
           type == L"WIPEOUTVARIABLES" || type == L"SPATIAL_FILTER" || (named && lacking);
}

}  // namespace

DrawnState DrawnState::of(const dxf::Drawing& drawing) {
    return {drawing.serial(),
            drawing.edits_made(),
            drawing.changed_records().size(),
            drawing.record_count(),
            static_cast<dxf::BlockId>(drawing.blocks().size()),
            drawing.block_names().size()};
}

bool DrawnState::still_holds(const dxf::Drawing& drawing, bool lacking) const {
    if (serial != drawing.serial()) {
        return false;
    }
    const auto& changed = drawing.changed_records();
    const bool all_kept = std::all_of(changed.begin() + static_cast<ptrdiff_t>(changes), changed.end(),
                                      [&](auto id) { return id >= records || only_counts(drawing, id); });
    if (!all_kept) {
        return false;
    }
    for (dxf::RecordId id = records; id < drawing.record_count(); ++id) {
        const dxf::Record& added = drawing.record(id);
        const bool names_known_block = added.type == dxf::type_block && added.block_name < block_names;
        if (names_known_block || governs_others(drawing.type_names().name(added.type), lacking)) {
            return false;
        }
    }
    return std::all_of(drawing.blocks().begin(), drawing.blocks().begin() + blocks, [this](const dxf::Block& block) {
        return block.entities.empty() || block.entities[block.entities.size() - 1] < records;
    });
}

DisplayList DisplayList::blank(Space space, const PictureLimits& limits) {
    DisplayList list;
    list.space = space;
    list.patterns.resize(1);  // the continuous one
    list.budget = PictureBudget(limits);
    return list;
}

}  // namespace host
