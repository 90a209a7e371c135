#include "bidi/reordering.h"

#include <algorithm>
#include <new>

#include "bidi/system_character_types.h"

namespace corvanes {
namespace {

/// Runs one of the functions of a Reordering that is kept between calls; 0 when the system gives no types or memory
/// runs out.
template <class Reorder>
int with_kept_buffers(std::wstring_view text, wchar_t* visual, Reorder reorder) {
    const CharacterTypes* types = system_character_types();
    if (types == nullptr) {
        return 0;
    }
    try {
        thread_local Reordering reordering(*types);
        reorder(reordering);
    } catch (const std::bad_alloc&) {
        return 0;
    }
    visual[text.size()] = L'\0';
    return 1;
}

int logical_to_visual(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right,
                      Level level_offset) {
    return with_kept_buffers(text, visual, [&](Reordering& reordering) {
        reordering.reorder(text, visual, map, left_to_right, level_offset);
    });
}

/// For runs whose levels do not come from the rules as they are.
void write_by_runs(std::wstring_view text, const std::vector<LevelRun>& runs, wchar_t* visual, std::uint32_t* map,
                   bool left_to_right) {
    PositionSet odd;
    PositionSet brackets;
    odd.clear(PositionSet::words_for(text.size()));
    brackets.clear(PositionSet::words_for(text.size()));
    for (const LevelRun& run : runs) {
        for (size_t i = run.start; i < run.start + run.length && run.right_to_left(); ++i) {
            odd.insert(i);
        }
    }
    for (size_t i = 0; i < text.size(); ++i) {
        if (IsMirrorChar(text[i])) {
            brackets.insert(i);
        }
    }
    VisualOrder().write(text, {runs, odd, brackets}, visual, map, left_to_right);
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
    std::vector<LevelRun> runs;
    for (size_t i = 0; i < length; ++i) {
        if (i == 0 || levels[i] != levels[i - 1]) {
            runs.push_back({static_cast<std::uint32_t>(i), 0, levels[i]});
        }
        ++runs.back().length;
    }
    write_by_runs({logical, length}, runs, visual, map, left_to_right != 0);
    return 1;
}

bool contains_right_to_left(std::wstring_view text) {
    return std::any_of(text.begin(), text.end(), is_hebrew_letter);
}

void Reordering::reorder(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right,
                         Level level_offset) {
    rules_.classes.classify(text, character_types_);
    rules_.left_to_right_line = left_to_right;
    rules_.resolve();
    rules_.find_runs(level_offset, runs_);
    if (level_offset != 0) {
        return write_by_runs(text, runs_, visual, map, left_to_right);
    }
    order_.write(text, {runs_, rules_.odd(), rules_.classes.bracket}, visual, map, left_to_right);
}

void Reordering::reorder_lines(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right) {
    runs_of_lines_.clear();
    for (size_t start = 0;;) {
        const size_t end = std::min(text.find(L'\n', start), text.size());
        const auto offset = static_cast<std::uint32_t>(start);
        std::uint32_t* const map_of_line = map != nullptr ? map + start : nullptr;
        reorder(text.substr(start, end - start), visual + start, map_of_line, left_to_right);
        for (size_t i = 0; map != nullptr && i <= end - start; ++i) {
            map_of_line[i] += offset;
        }
        for (const LevelRun& run : runs_) {
            runs_of_lines_.push_back({run.start + offset, run.length, run.level});
        }
        if (end == text.size()) {
            break;
        }
        visual[end] = L'\n';
        runs_of_lines_.push_back({static_cast<std::uint32_t>(end), 1, static_cast<Level>(left_to_right ? 0 : 1)});
        start = end + 1;
    }
    runs_.swap(runs_of_lines_);
}

int LogicalToVisual(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right) {
    return logical_to_visual({text, length}, visual, map, left_to_right != 0, 0);
}

int LogicalToVisualLine(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right) {
    return LogicalToVisual(text, length, visual, map, left_to_right);
}

int LinesToVisual(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right) {
    return with_kept_buffers({text, length}, visual, [&](Reordering& reordering) {
        reordering.reorder_lines({text, length}, visual, map, left_to_right != 0);
    });
}

int LogicalToVisualRaised(const wchar_t* text, size_t length, wchar_t* visual, std::uint32_t* map, int left_to_right) {
    return logical_to_visual({text, length}, visual, map, left_to_right != 0, 1);
}

}  // namespace corvanes
