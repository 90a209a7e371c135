// Points and vectors of the plane and of space, in drawing units.
#pragma once

#include <cmath>

namespace dxf {

constexpr double pi = 3.14159265358979323846;

struct Vec2 {
    double x = 0;
    double y = 0;

    Vec2 operator+(Vec2 other) const { return {x + other.x, y + other.y}; }
    Vec2 operator-(Vec2 other) const { return {x - other.x, y - other.y}; }
    Vec2 operator*(double factor) const { return {x * factor, y * factor}; }
    bool operator==(const Vec2&) const = default;
    double length() const { return std::sqrt(x * x + y * y); }
    /// Turned by 90 degrees counter-clockwise.
    Vec2 left() const { return {-y, x}; }
};

struct Vec3 {
    double x = 0;
    double y = 0;
    double z = 0;

    Vec3 operator+(const Vec3& other) const { return {x + other.x, y + other.y, z + other.z}; }
    Vec3 operator-(const Vec3& other) const { return {x - other.x, y - other.y, z - other.z}; }
    Vec3 operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    bool operator==(const Vec3&) const = default;
    double length() const { return std::sqrt(x * x + y * y + z * z); }
    /// As seen from above.
    Vec2 plan() const { return {x, y}; }
};

}  // namespace dxf
