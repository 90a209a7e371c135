// Affine maps of space: object coordinate systems and block insertions, before they are seen from above.
#pragma once

#include "platform/host/dxf/entities.h"
#include "platform/host/view/geometry.h"

namespace host {

Vec3 cross(const Vec3& a, const Vec3& b);

/// An affine map: where the unit vectors and the origin go.
struct Transform3 {
    Vec3 x{1, 0, 0};
    Vec3 y{0, 1, 0};
    Vec3 z{0, 0, 1};
    Vec3 origin;

    Vec3 operator()(const Vec3& point) const { return origin + vector(point); }
    Vec3 vector(const Vec3& v) const { return x * v.x + y * v.y + z * v.z; }
    /// Whether height has no part in what is seen from above, so that plan() says it all.
    bool flat() const;
    /// What the map does to the plane z = 0, seen from above.
    Affine2 plan() const { return {x.plan(), y.plan(), origin.plan()}; }

    static Transform3 translation(const Vec3& by);
    /// About the z axis, in radians counter-clockwise.
    static Transform3 rotation(double angle);
    static Transform3 scaling(const Vec3& factors);
    /// From the object coordinates of an extrusion direction (group 210) to world coordinates, by the arbitrary axis
    /// rule of the format. A zero direction counts as (0, 0, 1).
    static Transform3 extrusion(const Vec3& direction);
};

/// From a block with a base point to what its reference stands in; of several copies the first.
Transform3 placement_of(const dxf::Insert& insert, const Vec3& base);

/// From the object coordinates of an entity (group 210) to world coordinates.
Transform3 object_coordinates(const dxf::RecordFields& entity);

/// First `inner`, then `outer`.
Transform3 operator*(const Transform3& outer, const Transform3& inner);

}  // namespace host
