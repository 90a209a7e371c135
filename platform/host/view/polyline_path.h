// A polyline's segments: straight or bulged, thin or wide.
#pragma once

#include <vector>

#include "platform/host/view/picture_builder.h"
#include "platform/host/view/transform3.h"

namespace host {

/// A vertex and the segment that begins at it.
struct PathVertex {
    Vec3 point;
    double bulge = 0;
    double start_width = 0;
    double end_width = 0;
};

/// Adds the path, of which `map` makes picture coordinates: thin segments as lines and arcs, wide ones filled.
void add_path(const std::vector<PathVertex>& vertices, bool closed, const Transform3& map, PictureBuilder& out);

}  // namespace host
