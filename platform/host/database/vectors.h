// Conversions between points of the host interface and vectors of the drawing.
#pragma once

#include "gepnt3d.h"
#include "platform/host/dxf/vectors.h"

namespace host {

inline dxf::Vec3 vector_of(const AcGePoint3d& point) {
    return {point.x, point.y, point.z};
}

inline AcGePoint3d point_of(const dxf::Vec3& vector) {
    return {vector.x, vector.y, vector.z};
}

}  // namespace host
