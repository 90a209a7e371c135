// AcGeScale3d: the factors of a scaling along the three axes.
#pragma once

class AcGeScale3d {
  public:
    AcGeScale3d() = default;
    explicit AcGeScale3d(double factor) : sx(factor), sy(factor), sz(factor) {}
    AcGeScale3d(double xx, double yy, double zz) : sx(xx), sy(yy), sz(zz) {}

    bool operator==(const AcGeScale3d&) const = default;

    double sx = 1.0;
    double sy = 1.0;
    double sz = 1.0;
};
