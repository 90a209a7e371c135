#include "platform/host/view/transform3.h"

namespace host {

namespace {

/// The direction at an angle; of quarter turns, as most are, the exact one, and soon: the system's functions take long.
Vec2 turned(double angle) {
    constexpr Vec2 quarters[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};
    const double turns = angle / (pi / 2);
    constexpr double most = 1000;
    if (std::fabs(turns) < most && static_cast<int>(turns) == turns) {
        return quarters[static_cast<int>(turns) & 3];
    }
    return direction(angle);
}

}  // namespace

Vec3 cross(const Vec3& a, const Vec3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

bool Transform3::flat() const {
    constexpr double tilt = 1e-9;  // of a unit: far below what a drawing can mean
    return std::fabs(z.x) < tilt && std::fabs(z.y) < tilt;
}

Transform3 Transform3::translation(const Vec3& by) {
    Transform3 result;
    result.origin = by;
    return result;
}

Transform3 Transform3::rotation(double angle) {
    Transform3 result;
    if (angle != 0) {
        const Vec2 along = direction(angle);
        result.x = {along.x, along.y, 0};
        result.y = {-along.y, along.x, 0};
    }
    return result;
}

Transform3 Transform3::scaling(const Vec3& factors) {
    Transform3 result;
    result.x.x = factors.x;
    result.y.y = factors.y;
    result.z.z = factors.z;
    return result;
}

Transform3 Transform3::extrusion(const Vec3& direction) {
    Transform3 result;
    if (direction.x == 0 && direction.y == 0 && direction.z > 0) {
        return result;  // upright, as nearly everything is
    }
    const double length = direction.length();
    if (!(length > 0) || !std::isfinite(length)) {
        return result;
    }
    const Vec3 normal = direction * (1 / length);
    constexpr double near_world_z = 1.0 / 64;
    const bool nearly_upright = std::fabs(normal.x) < near_world_z && std::fabs(normal.y) < near_world_z;
    const Vec3 x = cross(nearly_upright ? Vec3{0, 1, 0} : Vec3{0, 0, 1}, normal);
    result.x = x * (1 / x.length());
    result.y = cross(normal, result.x);
    result.y = result.y * (1 / result.y.length());
    result.z = normal;
    return result;
}

Transform3 placement_of(const dxf::Insert& insert, const Vec3& base) {
    const Vec2 along = turned(insert.rotation);
    Transform3 placed;
    placed.x = {along.x * insert.scale.x, along.y * insert.scale.x, 0};
    placed.y = {-along.y * insert.scale.y, along.x * insert.scale.y, 0};
    placed.z = {0, 0, insert.scale.z};
    placed.origin = insert.position + placed.vector(base * -1);
    return insert.extrusion == Vec3{0, 0, 1} ? placed : Transform3::extrusion(insert.extrusion) * placed;
}

Transform3 object_coordinates(const dxf::RecordFields& entity) {
    return entity.has(210) ? Transform3::extrusion(entity.point(210, {0, 0, 1})) : Transform3();
}

Transform3 operator*(const Transform3& outer, const Transform3& inner) {
    return {outer.vector(inner.x), outer.vector(inner.y), outer.vector(inner.z), outer(inner.origin)};
}

}  // namespace host
