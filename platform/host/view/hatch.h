// What a HATCH says: the contours of its boundary, and the lines of its pattern, cut off there.
#pragma once

#include <optional>
#include <vector>

#include "platform/host/dxf/record_fields.h"
#include "platform/host/view/geometry.h"
#include "platform/host/view/picture_budget.h"

namespace host {

/// The closed contours of a HATCH as polygons in its object coordinates (the first point is not repeated), each curve
/// in `most_chords` chords at most. Paths without an area are left out.
std::vector<std::vector<Vec2>> read_hatch_boundary(const dxf::RecordFields& hatch, size_t most_chords);

/// One family of lines, in the hatch's object coordinates with angle and scale applied.
struct HatchFamily {
    double angle = 0;  ///< radians
    Vec2 base;
    Vec2 offset;                 ///< from one line to the next
    std::vector<double> dashes;  ///< drawn where positive, a gap where negative, a dot where 0; none for a full line
};

/// One dash, in the same coordinates; twice the same point for a dot.
struct HatchLine {
    Vec2 from;
    Vec2 to;
};

/// The families of a HATCH; none without a pattern.
std::vector<HatchFamily> read_hatch_pattern(const dxf::RecordFields& hatch);

/// The pattern's dashes inside the contours by the even-odd rule. Nothing when there would be `most` of them or more,
/// or the budget has no time for them.
std::optional<std::vector<HatchLine>> hatch_lines(const std::vector<HatchFamily>& pattern,
                                                  const std::vector<std::vector<Vec2>>& contours, size_t most,
                                                  PictureBudget& budget);

}  // namespace host
