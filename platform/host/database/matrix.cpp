#include <cmath>

#include "gemat3d.h"

double AcGeVector3d::length() const {
    return std::sqrt(x * x + y * y + z * z);
}

AcGePoint3d AcGeMatrix3d::operator*(const AcGePoint3d& point) const {
    const AcGeVector3d turned = *this * point.asVector();
    return {turned.x + entry[0][3], turned.y + entry[1][3], turned.z + entry[2][3]};
}

AcGeVector3d AcGeMatrix3d::operator*(const AcGeVector3d& vector) const {
    const auto row = [&](int i) { return entry[i][0] * vector.x + entry[i][1] * vector.y + entry[i][2] * vector.z; };
    return {row(0), row(1), row(2)};
}
