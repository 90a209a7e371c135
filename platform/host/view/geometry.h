// Points, vectors, boxes and plane transforms of the drawing view. Drawing units, x to the right, y up.
#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <vector>

#include "platform/host/dxf/vectors.h"

namespace host {

using dxf::pi;
using dxf::Vec2;
using dxf::Vec3;

inline double dot(Vec2 a, Vec2 b) {
    return a.x * b.x + a.y * b.y;
}
inline double cross(Vec2 a, Vec2 b) {
    return a.x * b.y - a.y * b.x;
}
inline bool finite(Vec2 point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}
/// The unit vector at an angle in radians, counter-clockwise from the x axis.
inline Vec2 direction(double angle) {
    return {std::cos(angle), std::sin(angle)};
}

/// An axis-parallel box with its edges; empty until something is added.
struct Box2 {
    Vec2 low{std::numeric_limits<double>::infinity(), std::numeric_limits<double>::infinity()};
    Vec2 high{-std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity()};

    bool empty() const { return !(low.x <= high.x && low.y <= high.y); }
    double width() const { return high.x - low.x; }
    double height() const { return high.y - low.y; }
    Vec2 centre() const { return (low + high) * 0.5; }
    void add(Vec2 point) {
        low = {std::min(low.x, point.x), std::min(low.y, point.y)};
        high = {std::max(high.x, point.x), std::max(high.y, point.y)};
    }
    void add(const Box2& other) {
        low = {std::min(low.x, other.low.x), std::min(low.y, other.low.y)};
        high = {std::max(high.x, other.high.x), std::max(high.y, other.high.y)};
    }
    bool intersects(const Box2& other) const {
        return low.x <= other.high.x && other.low.x <= high.x && low.y <= other.high.y && other.low.y <= high.y;
    }
    bool contains(Vec2 point) const {
        return low.x <= point.x && point.x <= high.x && low.y <= point.y && point.y <= high.y;
    }
    bool contains(const Box2& other) const { return contains(other.low) && contains(other.high); }
    Box2 common(const Box2& other) const {
        return {{std::max(low.x, other.low.x), std::max(low.y, other.low.y)},
                {std::min(high.x, other.high.x), std::min(high.y, other.high.y)}};
    }
    /// The box between two opposite corners.
    static Box2 between(Vec2 a, Vec2 b) {
        Box2 box;
        box.add(a);
        box.add(b);
        return box;
    }
    static Box2 around(Vec2 centre, double half) {
        return {{centre.x - half, centre.y - half}, {centre.x + half, centre.y + half}};
    }
};

/// Whether the point is inside a closed polygon by the even-odd rule.
inline bool encloses(const std::vector<Vec2>& polygon, Vec2 point) {
    bool inside = false;
    for (size_t i = 0; i < polygon.size(); ++i) {
        const Vec2 from = polygon[i];
        const Vec2 to = polygon[(i + 1) % polygon.size()];
        if ((from.y <= point.y) != (to.y <= point.y) &&
            point.x < from.x + (to.x - from.x) * (point.y - from.y) / (to.y - from.y)) {
            inside = !inside;
        }
    }
    return inside;
}

/// An affine map of the plane: where the unit vectors and the origin go.
struct Affine2 {
    Vec2 x{1, 0};
    Vec2 y{0, 1};
    Vec2 origin;

    Vec2 operator()(Vec2 point) const { return origin + vector(point); }
    /// A direction or distance, which has no place.
    Vec2 vector(Vec2 v) const { return {x.x * v.x + y.x * v.y, x.y * v.x + y.y * v.y}; }
    double determinant() const { return cross(x, y); }
    /// The length of the longest image of a unit vector, or a little more.
    double scale() const { return std::max(x.length(), y.length()); }
};

/// First `inner`, then `outer`.
inline Affine2 operator*(const Affine2& outer, const Affine2& inner) {
    return {outer.vector(inner.x), outer.vector(inner.y), outer(inner.origin)};
}

/// The smallest box around the image of a box.
inline Box2 image(const Affine2& map, const Box2& box) {
    Box2 result;
    if (!box.empty()) {
        result.add(map(box.low));
        result.add(map(box.high));
        result.add(map({box.low.x, box.high.y}));
        result.add(map({box.high.x, box.low.y}));
    }
    return result;
}

/// Nothing for a map that flattens the plane.
inline std::optional<Affine2> inverse(const Affine2& map) {
    const double determinant = map.determinant();
    if (determinant == 0 || !std::isfinite(1 / determinant)) {
        return std::nullopt;
    }
    Affine2 result{
        {map.y.y / determinant, -map.x.y / determinant}, {-map.y.x / determinant, map.x.x / determinant}, {}};
    result.origin = result.vector(map.origin) * -1;
    return result;
}

}  // namespace host
