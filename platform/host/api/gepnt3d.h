// AcGePoint3d: a point of space, in drawing units.
#pragma once

#include "gevec3d.h"

class AcGePoint3d {
  public:
    AcGePoint3d() = default;
    AcGePoint3d(double xx, double yy, double zz) : x(xx), y(yy), z(zz) {}

    AcGePoint3d operator+(const AcGeVector3d& vector) const { return {x + vector.x, y + vector.y, z + vector.z}; }
    AcGePoint3d operator-(const AcGeVector3d& vector) const { return {x - vector.x, y - vector.y, z - vector.z}; }
    AcGeVector3d operator-(const AcGePoint3d& other) const { return {x - other.x, y - other.y, z - other.z}; }
    bool operator==(const AcGePoint3d&) const = default;
    double& operator[](unsigned int axis) { return axis == 0 ? x : axis == 1 ? y : z; }
    double operator[](unsigned int axis) const { return axis == 0 ? x : axis == 1 ? y : z; }
    AcGePoint3d& set(double xx, double yy, double zz) { return *this = AcGePoint3d(xx, yy, zz); }
    AcGeVector3d asVector() const { return {x, y, z}; }

    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
};
