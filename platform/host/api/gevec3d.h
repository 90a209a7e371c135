// AcGeVector3d: a direction or a distance in space.
#pragma once

#include <cmath>

class AcGeVector3d {
  public:
    AcGeVector3d() = default;
    AcGeVector3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    AcGeVector3d operator*(double factor) const { return {x * factor, y * factor, z * factor}; }
    AcGeVector3d operator+(const AcGeVector3d& other) const { return {x + other.x, y + other.y, z + other.z}; }
    AcGeVector3d operator-(const AcGeVector3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
    AcGeVector3d operator-() const { return {-x, -y, -z}; }
    bool operator==(const AcGeVector3d&) const = default;
    AcGeVector3d& set(double xx, double yy, double zz) { return *this = AcGeVector3d(xx, yy, zz); }
    double length() const { return std::sqrt(x * x + y * y + z * z); }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
