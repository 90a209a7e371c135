// Points as arrays of three reals and the other way.
#pragma once

#include "gepnt3d.h"

inline double* asDblArray(AcGePoint3d& point) {
    return &point.x;
}

inline const double* asDblArray(const AcGePoint3d& point) {
    return &point.x;
}

inline AcGePoint3d asPnt3d(const double values[3]) {
    return {values[0], values[1], values[2]};
}
