// AcGeMatrix3d: a transformation of space.
#pragma once

#include "gepnt3d.h"

class AcGeMatrix3d {
  public:
    /// The identity.
    AcGeMatrix3d();

    /// The right one is applied first.
    AcGeMatrix3d operator*(const AcGeMatrix3d& right) const;
    AcGePoint3d operator*(const AcGePoint3d& point) const;
    /// Without the displacement.
    AcGeVector3d operator*(const AcGeVector3d& vector) const;

    AcGeMatrix3d& setToIdentity() { return *this = AcGeMatrix3d(); }
    static AcGeMatrix3d translation(const AcGeVector3d& by);
    /// About the z axis, in radians.
    static AcGeMatrix3d rotation_about_z(double angle);
    static AcGeMatrix3d scaling(double x, double y, double z);

    double entry[4][4];
};
