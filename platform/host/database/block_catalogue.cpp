#include "platform/host/database/block_catalogue.h"

#include <algorithm>

#include "base/case_folding.h"

namespace host {

bool is_model_space_name(std::wstring_view name) {
    const std::wstring lower = base::lower(name);
    return lower == L"*model_space" || lower == L"$model_space";
}

bool is_paper_space_name(std::wstring_view name) {
    const std::wstring lower = base::lower(name);
    return lower.rfind(L"*paper_space", 0) == 0 || lower.rfind(L"$paper_space", 0) == 0;
}

namespace {

constexpr std::wstring_view model_space_name = L"*Model_Space";
constexpr std::wstring_view paper_space_name = L"*Paper_Space";

/// The one of the active layout; "*Paper_Space0" and the like are other layouts.
bool is_active_paper_space_name(std::wstring_view name) {
    return is_paper_space_name(name) && name.size() == paper_space_name.size();
}

bool run_holds(const dxf::RecordRun& run, dxf::RecordId record) {
    const size_t count = run.size();
    if (count == 0 || record < run[0]) {
        return false;
    }
    // Ids rise along a run, both those that were read and those that were added.
    size_t low = 0;
    size_t high = count;
    while (high - low > 1) {
        const size_t middle = low + (high - low) / 2;
        (run[middle] <= record ? low : high) = middle;
    }
    return run[low] == record;
}

}  // namespace

BlockCatalogue::BlockCatalogue(const dxf::Drawing& drawing) : drawing_(drawing), entries_(2) {
    for (dxf::BlockId block = 0; block < drawing.blocks().size(); ++block) {
        add(block);
    }
}

BlockNumber BlockCatalogue::add(dxf::BlockId block) {
    const dxf::Block& added = drawing_.blocks()[block];
    numbers_.resize(std::max<size_t>(numbers_.size(), block + 1), no_block_number);
    if (added.name == dxf::no_name || drawing_.block_named(added.name) != block) {
        return no_block_number;
    }
    const std::wstring& name = drawing_.block_names().name(added.name);
    if (name.empty()) {
        return no_block_number;
    }
    BlockNumber number = size();
    if (is_model_space_name(name)) {
        number = model_space_number;
    } else if (is_active_paper_space_name(name)) {
        number = paper_space_number;
    }
    if (number == size()) {
        entries_.emplace_back();
    } else if (entries_[number].block != dxf::no_block) {
        return no_block_number;
    }
    entries_[number].block = block;
    numbers_[block] = number;
    return number;
}

const std::wstring& BlockCatalogue::name(BlockNumber number) const {
    const Entry& entry = entries_[number];
    if (!entry.name) {
        entry.name = read_name(number);
    }
    return *entry.name;
}

std::wstring BlockCatalogue::read_name(BlockNumber number) const {
    const std::wstring_view usual = number == model_space_number ? model_space_name : paper_space_name;
    if (entries_[number].block == dxf::no_block) {
        return std::wstring(usual);
    }
    // The name table keeps the first spelling, which may be that of a reference: the BLOCK's own counts.
    std::wstring name = drawing_.view(drawing_.blocks()[entries_[number].block].head).text(2);
    return is_space(number) && name[0] == L'$' ? std::wstring(usual) : name;
}

BlockNumber BlockCatalogue::named(std::wstring_view name) const {
    BlockNumber number = number_of(drawing_.block_named(drawing_.block_names().find(name)));
    if (number == no_block_number && is_model_space_name(name)) {
        number = model_space_number;
    } else if (number == no_block_number && is_active_paper_space_name(name)) {
        number = paper_space_number;
    }
    return number == no_block_number || erased(number) ? no_block_number : number;
}

bool BlockCatalogue::erased(BlockNumber number) const {
    const dxf::BlockId block = entries_[number].block;
    return block != dxf::no_block && drawing_.record(drawing_.blocks()[block].head).is(dxf::Record::erased);
}

bool BlockCatalogue::is_layout(BlockNumber number) const {
    return is_space(number) || is_paper_space_name(name(number));
}

size_t BlockCatalogue::slots(BlockNumber number) const {
    const dxf::BlockId block = entries_[number].block;
    const size_t own = block == dxf::no_block ? 0 : drawing_.blocks()[block].entities.size();
    return own + (is_space(number) ? drawing_.entities().size() : 0);
}

dxf::RecordId BlockCatalogue::at(BlockNumber number, size_t slot) const {
    if (is_space(number)) {
        if (slot < drawing_.entities().size()) {
            return drawing_.entities()[slot];
        }
        slot -= drawing_.entities().size();
    }
    return drawing_.blocks()[entries_[number].block].entities[slot];
}

bool BlockCatalogue::holds(BlockNumber number, dxf::RecordId record, bool skip_erased) const {
    const dxf::Record& entity = drawing_.record(record);
    if (skip_erased && entity.is(dxf::Record::erased)) {
        return false;
    }
    return !is_space(number) || !run_holds(drawing_.entities(), record) ||
           entity.is(dxf::Record::paper_space) == (number == paper_space_number);
}

BlockNumber BlockCatalogue::owner_of(dxf::RecordId record) const {
    if (run_holds(drawing_.entities(), record)) {
        return drawing_.record(record).is(dxf::Record::paper_space) ? paper_space_number : model_space_number;
    }
    for (dxf::BlockId block = 0; block < drawing_.blocks().size(); ++block) {
        if (run_holds(drawing_.blocks()[block].entities, record)) {
            return number_of(block);
        }
    }
    return no_block_number;
}

}  // namespace host
