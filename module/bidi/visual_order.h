// The painted order of a line whose levels are known.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "bidi/level_rules.h"

namespace corvanes {

/// What the painted order depends on: the runs of levels, in logical order and without a gap; and by their logical
/// positions, the characters of odd levels and the brackets.
struct LineLevels {
    const std::vector<LevelRun>& runs;
    const PositionSet& odd;
    const PositionSet& brackets;
};

/// Keeps its buffers from line to line.
class VisualOrder {
  public:
    /// Writes the text as painted and, when `map` is not null, the logical index of each painted character and the
    /// length. In a right-to-left line position 0 is the right edge, and brackets are mirrored.
    void write(std::wstring_view text, const LineLevels& levels, wchar_t* visual, std::uint32_t* map,
               bool left_to_right);

  private:
    void order_runs(const std::vector<LevelRun>& runs, bool left_to_right);
    void write_indexes(const std::vector<LevelRun>& runs, bool left_to_right);
    void mirror_brackets(const LineLevels& levels, size_t length, wchar_t* visual) const;

    /// The numbers of the runs as they are painted.
    std::vector<std::uint32_t> order_;
    /// The painted position at which each run begins, by the run's number.
    std::vector<std::uint32_t> painted_starts_;
    std::vector<std::uint32_t> indexes_;
};

}  // namespace corvanes
