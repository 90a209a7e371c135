#include <cmath>

#include "gemat3d.h"

double AcGeVector3d::length() const {
    return std::sqrt(dotProduct(*this));
}

AcGeMatrix3d::AcGeMatrix3d() {
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            entry[row][column] = row == column ? 1.0 : 0.0;
        }
    }
}

AcGeMatrix3d AcGeMatrix3d::operator*(const AcGeMatrix3d& right) const {
    AcGeMatrix3d product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0.0;
            for (int k = 0; k < 4; ++k) {
                sum += entry[row][k] * right.entry[k][column];
            }
            product.entry[row][column] = sum;
        }
    }
    return product;
}

AcGePoint3d AcGeMatrix3d::operator*(const AcGePoint3d& point) const {
    const AcGeVector3d turned = *this * point.asVector();
    return {turned.x + entry[0][3], turned.y + entry[1][3], turned.z + entry[2][3]};
}

AcGeVector3d AcGeMatrix3d::operator*(const AcGeVector3d& vector) const {
    const auto row = [&](int i) { return entry[i][0] * vector.x + entry[i][1] * vector.y + entry[i][2] * vector.z; };
    return {row(0), row(1), row(2)};
}

AcGeMatrix3d AcGeMatrix3d::translation(const AcGeVector3d& by) {
    AcGeMatrix3d matrix;
    matrix.entry[0][3] = by.x;
    matrix.entry[1][3] = by.y;
    matrix.entry[2][3] = by.z;
    return matrix;
}

AcGeMatrix3d AcGeMatrix3d::rotation_about_z(double angle) {
    AcGeMatrix3d matrix;
    matrix.entry[0][0] = matrix.entry[1][1] = std::cos(angle);
    matrix.entry[1][0] = std::sin(angle);
    matrix.entry[0][1] = -matrix.entry[1][0];
    return matrix;
}

AcGeMatrix3d AcGeMatrix3d::scaling(double x, double y, double z) {
    AcGeMatrix3d matrix;
    matrix.entry[0][0] = x;
    matrix.entry[1][1] = y;
    matrix.entry[2][2] = z;
    return matrix;
}
