// The boundary paths of a hatch.
#pragma once

#include <vector>

#include "platform/host/dxf/record_fields.h"
#include "platform/host/view/geometry.h"

namespace host {

/// The closed contours of a HATCH as polygons in its object coordinates (the first point is not repeated). Paths
/// without an area are left out.
std::vector<std::vector<Vec2>> read_hatch_boundary(const dxf::RecordFields& hatch, size_t most_chords);

}  // namespace host
