#include "bidi/visual_order.h"

#include <algorithm>
#include <array>
#include <optional>

namespace corvanes {
namespace {

/// How many indexes of a run are written at once, without asking where the run ends.
constexpr std::uint32_t block = 8;

struct LevelRange {
    Level highest = 0;
    /// Without an odd level nothing moves.
    std::optional<Level> lowest_odd;
};

LevelRange find_level_range(const std::vector<LevelRun>& runs) {
    LevelRange range;
    for (const LevelRun& run : runs) {
        range.highest = std::max(range.highest, run.level);
        if (run.right_to_left() && (!range.lowest_odd || run.level < *range.lowest_odd)) {
            range.lowest_odd = run.level;
        }
    }
    return range;
}

void reverse_sequences(std::vector<LevelRun>& runs, Level level) {
    const auto below = [level](const LevelRun& run) { return run.level < level; };
    for (auto start = runs.begin(); start != runs.end();) {
        start = std::find_if_not(start, runs.end(), below);
        const auto end = std::find_if(start, runs.end(), below);
        std::reverse(start, end);
        start = end;
    }
}

/// Writes the logical indexes of one run, and up to block - 1 entries more behind them.
void write_run(std::uint32_t* indexes, const LevelRun& run, bool backwards) {
    // One way for both directions and for most lengths: neither can be predicted.
    const std::uint32_t first = backwards ? run.start + run.length - 1 : run.start;
    const std::uint32_t step = backwards ? ~0U : 1U;
    for (std::uint32_t done = 0; done < run.length; done += block) {
        const std::uint32_t value = first + done * step;
        for (size_t i = 0; i < block; ++i) {
            indexes[i] = value + static_cast<std::uint32_t>(i) * step;
        }
        indexes += block;
    }
}

constexpr std::array<wchar_t, 0x80> mirrored_ascii() {
    std::array<wchar_t, 0x80> mirrored{};
    for (size_t character = 0; character < mirrored.size(); ++character) {
        mirrored[character] = GetMirrorChar(static_cast<wchar_t>(character));
    }
    return mirrored;
}

}  // namespace

void VisualOrder::set_levels(const std::uint32_t* starts, const Level* levels, size_t count) {
    // As with the units of a line: every unit writes where a run might begin, which only stays when one does.
    run_starts_.resize(std::max(run_starts_.size(), count + 1));
    size_t runs = 0;
    int previous_level = -1;
    for (size_t i = 0; i < count; ++i) {
        run_starts_[runs] = static_cast<std::uint32_t>(i);
        runs += levels[i] != previous_level ? 1 : 0;
        previous_level = levels[i];
    }
    run_starts_[runs] = static_cast<std::uint32_t>(count);
    logical_runs_.resize(runs);
    for (size_t run = 0; run < runs; ++run) {
        const std::uint32_t start = starts[run_starts_[run]];
        logical_runs_[run] = {start, starts[run_starts_[run + 1]] - start, levels[run_starts_[run]]};
    }
}

/// From the highest level down to the lowest odd one, every sequence of runs at or above the level is reversed.
void VisualOrder::order_runs() {
    painted_runs_ = logical_runs_;
    const LevelRange range = find_level_range(painted_runs_);
    if (range.lowest_odd) {
        for (Level level = range.highest; level >= *range.lowest_odd; --level) {
            reverse_sequences(painted_runs_, level);
        }
    }
}

void VisualOrder::write_indexes(bool left_to_right) {
    std::uint32_t* indexes = indexes_.data();
    if (!left_to_right) {
        std::reverse(painted_runs_.begin(), painted_runs_.end());
    }
    for (const LevelRun& run : painted_runs_) {
        write_run(indexes, run, run.right_to_left() == left_to_right);
        indexes += run.length;
    }
}

void VisualOrder::mirror_brackets(wchar_t* visual) const {
    static constexpr auto mirrored = mirrored_ascii();
    for (const LevelRun& run : logical_runs_) {
        if (!run.right_to_left()) {
            continue;
        }
        for (wchar_t* character = visual + run.start; character != visual + run.start + run.length; ++character) {
            // The table's last entry, which is no bracket, also stands for all characters beyond.
            const size_t index = std::min(static_cast<size_t>(*character), mirrored.size() - 1);
            if (mirrored[index] != static_cast<wchar_t>(index)) {
                *character = mirrored[index];
            }
        }
    }
}

void VisualOrder::write(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right) {
    const size_t length = text.size();
    if (indexes_.size() < length + block) {
        indexes_.resize(length + block);
    }
    order_runs();
    write_indexes(left_to_right);
    for (size_t i = 0; i < length; ++i) {
        visual[i] = text[indexes_[i]];
    }
    if (!left_to_right) {
        mirror_brackets(visual);
    }
    if (map != nullptr) {
        std::copy_n(indexes_.begin(), length, map);
        map[length] = static_cast<std::uint32_t>(length);
    }
}

}  // namespace corvanes
