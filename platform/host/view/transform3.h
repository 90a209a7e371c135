// Affine maps of space: object coordinate systems and block insertions, before they are seen from above.
#pragma once

#include "platform/host/view/geometry.h"

namespace host {

struct Vec3 {
    double x = 0;
    double y = 0;
    double z = 0;

    Vec3 operator+(const Vec3& other) const { return {x + other.x, y + other.y, z + other.z}; }
    Vec3 operator-(const Vec3& other) const { return {x - other.x, y - other.y, z - other.z}; }
    Vec3 operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    double length() const { return std::sqrt(x * x + y * y + z * z); }
    Vec2 plan() const { return {x, y}; }
};

Vec3 cross(const Vec3& a, const Vec3& b);

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

/// First `inner`, then `outer`.
Transform3 operator*(const Transform3& outer, const Transform3& inner);

}  // namespace host
