#include "bidi/reordering.h"

#include <algorithm>
#include <new>
#include <numeric>

#include "bidi/system_character_types.h"

namespace corvanes {
namespace {

int logical_to_visual(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right,
                      Level level_offset) {
    const CharacterTypes* types = system_character_types();
    if (types == nullptr) {
        return 0;
    }
    try {
        thread_local Reordering reordering(*types);
        reordering.reorder(text, visual, map, left_to_right, level_offset);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    visual[text.size()] = L'\0';
    return 1;
}

}  // namespace

void ReverseChars(wchar_t* text, size_t length) {
    std::reverse(text, text + length);
}

void ReverseIndexes(std::uint32_t* map, size_t length) {
    std::reverse(map, map + length);
}

int ReorderLevels(const wchar_t* logical, size_t length, wchar_t* visual, const Level* levels, std::uint32_t* map,
                  int left_to_right) {
    std::vector<std::uint32_t> starts(length + 1);
    std::iota(starts.begin(), starts.end(), 0U);
    VisualOrder order;
    order.set_levels(starts.data(), levels, length);
    order.write({logical, length}, visual, map, left_to_right != 0);
    return 1;
}

bool contains_right_to_left(std::wstring_view text) {
    const CharacterTypes* types = system_character_types();
    return types != nullptr && std::any_of(text.begin(), text.end(), [types](wchar_t character) {
               return types->of(character) == BidiType::right_to_left;
           });
}

void Reordering::reorder(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right,
                         Level level_offset) {
    if (types_.size() <= text.size()) {
        starts_.resize(text.size() + 1);
        types_.resize(text.size() + 1);
        next_strong_.resize(text.size() + 1);
        levels_.resize(text.size() + 1);
    }
    const size_t units = cut_into_units(text.data(), text.size(), character_types_, starts_.data(), types_.data());
    const LevelLine line{text.data(), starts_.data(), types_.data(), levels_.data(), units, left_to_right};
    resolve_levels(line, next_strong_.data());
    for (size_t i = 0; i < units && level_offset != 0; ++i) {
        levels_[i] += level_offset;
    }
    order_.set_levels(starts_.data(), levels_.data(), units);
    order_.write(text, visual, map, left_to_right);
}

int LogicalToVisual(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right) {
    return logical_to_visual({text, length}, visual, map, left_to_right != 0, 0);
}

int LogicalToVisualLine(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right) {
    return LogicalToVisual(text, length, visual, map, left_to_right);
}

int LogicalToVisualRaised(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right) {
    return logical_to_visual({text, length}, visual, map, left_to_right != 0, 1);
}

}  // namespace corvanes
