// AcGeMatrix3d: a transformation of space.
#pragma once

#include "gepnt3d.h"

class AcGeMatrix3d {
  public:
    AcGePoint3d operator*(const AcGePoint3d& point) const;
    /// Without the displacement.
    AcGeVector3d operator*(const AcGeVector3d& vector) const;

    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};
