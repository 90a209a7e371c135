// The painted order of a line whose levels are known.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "bidi/neutral_direction.h"

namespace corvanes {

/// Characters of one level: `start` to start + length - 1 of the logical text.
struct LevelRun {
    std::uint32_t start;
    std::uint32_t length;
    Level level;

    bool right_to_left() const { return is_right_to_left(level); }
};

/// Keeps its buffers from line to line.
class VisualOrder {
  public:
    /// The levels of the units of a text. `starts` has count + 1 entries, the last one the text's length.
    void set_levels(const std::uint32_t* starts, const Level* levels, size_t count);

    /// Writes the text as painted and, when `map` is not null, the logical index of each painted character and the
    /// length. In a right-to-left line position 0 is the right edge, and brackets are mirrored.
    void write(std::wstring_view text, wchar_t* visual, std::uint32_t* map, bool left_to_right);

    const std::vector<LevelRun>& logical_runs() const { return logical_runs_; }

  private:
    void order_runs();
    void write_indexes(bool left_to_right);
    void mirror_brackets(wchar_t* visual) const;

    std::vector<std::uint32_t> run_starts_;
    std::vector<LevelRun> logical_runs_;
    std::vector<LevelRun> painted_runs_;
    std::vector<std::uint32_t> indexes_;
};

}  // namespace corvanes
