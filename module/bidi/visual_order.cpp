#include "bidi/visual_order.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <optional>

namespace corvanes {
namespace {

/// How many indexes of a run are written at once, without asking where the run ends.
constexpr std::uint32_t block = 16;

struct LevelRange {
    Level lowest;
    Level highest;
    /// Empty when no level is odd; then nothing moves.
    std::optional<Level> lowest_odd;
};

LevelRange find_level_range(const std::vector<LevelRun>& runs) {
    constexpr Level none = 0xFFFF;
    Level lowest = none;
    Level highest = 0;
    Level lowest_odd = none;
    for (const LevelRun& run : runs) {
        lowest = std::min(lowest, run.level);
        highest = std::max(highest, run.level);
        lowest_odd = std::min(lowest_odd, run.right_to_left() ? run.level : none);
    }
    return {lowest, highest, lowest_odd == none ? std::nullopt : std::optional<Level>(lowest_odd)};
}

/// Reverses every sequence of runs at or above the level.
void reverse_sequences(std::vector<std::uint32_t>& order, const std::vector<LevelRun>& runs, Level level) {
    const auto below = [&runs, level](std::uint32_t run) { return runs[run].level < level; };
    for (auto start = order.begin(); start != order.end();) {
        start = std::find_if_not(start, order.end(), below);
        const auto end = std::find_if(start, order.end(), below);
        std::reverse(start, end);
        start = end;
    }
}

/// What to add to the first index of a run to get the next ones, forwards and backwards.
using Offsets = std::array<std::uint32_t, block>;

constexpr Offsets make_offsets(std::uint32_t step) {
    Offsets offsets{};
    for (std::uint32_t i = 0; i < block; ++i) {
        offsets[i] = i * step;
    }
    return offsets;
}
constexpr Offsets offsets_by_direction[] = {make_offsets(1), make_offsets(~0U)};

/// Writes the logical indexes of one run, and up to block - 1 entries more behind them.
void write_run(std::uint32_t* indexes, const LevelRun& run, bool backwards) {
    // Both directions and most lengths take the same path, because the processor could predict neither.
    const Offsets offsets = offsets_by_direction[backwards ? 1 : 0];
    const std::uint32_t all_if_backwards = 0U - (backwards ? 1U : 0U);
    const std::uint32_t length = run.length;
    std::uint32_t first = run.start + (all_if_backwards & (length - 1));
    for (std::uint32_t done = 0; done < length; done += block) {
        for (size_t i = 0; i < block; ++i) {
            indexes[done + i] = first + offsets[i];
        }
        first += block * (all_if_backwards | 1U);
    }
}

}  // namespace

/// From the highest level down to the lowest odd one, every sequence of runs at or above the level is reversed; and in
/// the end the whole right-to-left line.
void VisualOrder::order_runs(const std::vector<LevelRun>& runs, bool left_to_right) {
    order_.resize(runs.size());
    std::iota(order_.begin(), order_.end(), 0U);
    const LevelRange range = find_level_range(runs);
    bool reverse_all = !left_to_right;
    // Runs of the highest level stand alone, and those at the lowest level or above are the whole line.
    for (Level level = range.highest; range.lowest_odd && level > *range.lowest_odd;) {
        if (--level == range.lowest) {
            reverse_all = !reverse_all;
        } else {
            reverse_sequences(order_, runs, level);
        }
    }
    if (reverse_all) {
        std::reverse(order_.begin(), order_.end());
    }
}

void VisualOrder::write_indexes(const std::vector<LevelRun>& runs, bool left_to_right) {
    painted_starts_.resize(runs.size());
    std::uint32_t painted = 0;
    for (const std::uint32_t number : order_) {
        const LevelRun& run = runs[number];
        painted_starts_[number] = painted;
        write_run(indexes_.data() + painted, run, run.right_to_left() == left_to_right);
        painted += run.length;
    }
}

// A bracket is mirrored when the typed line has an odd level at the bracket's painted position, whatever level the
// bracket itself has.
void VisualOrder::mirror_brackets(const LineLevels& levels, size_t length, wchar_t* visual) const {
    size_t number = 0;
    for_each_position(levels.brackets, PositionSet::words_for(length), [&](size_t position) {
        while (position >= levels.runs[number].start + levels.runs[number].length) {
            ++number;
        }
        const LevelRun& run = levels.runs[number];
        const size_t offset = position - run.start;
        const size_t painted = painted_starts_[number] + (run.right_to_left() ? offset : run.length - 1 - offset);
        if (levels.odd.contains(painted)) {
            visual[painted] = GetMirrorChar(visual[painted]);
        }
    });
}

void VisualOrder::write(std::wstring_view text, const LineLevels& levels, wchar_t* visual, std::uint32_t* map,
                        bool left_to_right) {
    const size_t length = text.size();
    if (indexes_.size() < length + block) {
        indexes_.resize(length + block);
    }
    order_runs(levels.runs, left_to_right);
    write_indexes(levels.runs, left_to_right);
    for (size_t i = 0; i < length; ++i) {
        visual[i] = text[indexes_[i]];
    }
    if (!left_to_right) {
        mirror_brackets(levels, length, visual);
    }
    if (map != nullptr) {
        std::copy_n(indexes_.begin(), length, map);
        map[length] = static_cast<std::uint32_t>(length);
    }
}

}  // namespace corvanes
