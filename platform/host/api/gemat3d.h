// AcGeMatrix3d: an affine transformation of space, as a matrix of rows and columns.
#pragma once

#include "gepnt3d.h"

class AcGeMatrix3d {
  public:
    AcGePoint3d operator*(const AcGePoint3d& point) const {
        const AcGeVector3d turned = *this * point.asVector();
        return {turned.x + entry[0][3], turned.y + entry[1][3], turned.z + entry[2][3]};
    }
    /// Transforms a vector, which is turned and stretched but not displaced.
    AcGeVector3d operator*(const AcGeVector3d& vector) const {
        const auto row = [&](int i) {
            return entry[i][0] * vector.x + entry[i][1] * vector.y + entry[i][2] * vector.z;
        };
        return {row(0), row(1), row(2)};
    }

    double entry[4][4] = {{1, 0, 0, 0}, {0, 1, 0, 0}, {0, 0, 1, 0}, {0, 0, 0, 1}};
};
