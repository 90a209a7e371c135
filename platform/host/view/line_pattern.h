// The dashes of a line.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/host/view/geometry.h"

namespace host {

/// A linetype's dashes and gaps in turn, in drawing units: a positive length is a dash, 0 a dot, a negative one a gap.
/// Empty for a continuous line.
struct LinePattern {
    /// Numbers that stand for a pattern of DisplayList::patterns.
    static constexpr uint16_t continuous = 0;
    static constexpr uint16_t of_block = 0xFFFF;        ///< that of the block reference
    static constexpr uint16_t of_block_layer = 0xFFFE;  ///< that of the block reference's layer
    static constexpr uint16_t last = 0xFFFD;

    std::vector<double> lengths;

    double total() const;
    LinePattern scaled(double factor) const;
    /// The pattern for lines that take the pixels of both their ends: dashes are a pixel shorter.
    LinePattern in_pixels(double pixels_per_unit) const;
};

/// Cuts the connected line through `points` by a pattern in the same units, which is not empty and longer than 0. The
/// line begins and ends alike, with a part of the pattern's first dash or with a dot, and is left whole when it is
/// shorter than the pattern. Appends the two ends of each dash to `dashes`, twice the same point for a dot; a dash
/// around a corner is several. What lies outside of `area` may be left out.
void cut_by_pattern(const std::vector<Vec2>& points, const LinePattern& pattern, const Box2& area,
                    std::vector<Vec2>& dashes);

}  // namespace host
