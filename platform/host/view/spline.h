// Spline curves: by control points and knots (NURBS), or through fit points.
#pragma once

#include <vector>

#include "platform/host/view/transform3.h"

namespace host {

/// A B-spline curve. Weights are 1 where there are none.
struct Spline {
    static constexpr size_t steps_per_span = 16;  ///< chords between two knots, where no fewer are asked for

    int degree = 3;
    std::vector<double> knots;
    std::vector<Vec3> controls;
    std::vector<double> weights;

    /// Whether degree, knots and control points go together.
    bool valid() const;
    /// The curve's points at parameters from the first to the last, close enough to draw at the size of any screen.
    /// Only for a valid spline.
    std::vector<Vec3> flatten(size_t most_chords = steps_per_span) const;
    /// One point; `t` is brought into the curve's range.
    Vec3 at(double t) const;
};

/// A smooth curve through the points: the natural cubic spline over chord lengths, closed on itself when asked for.
std::vector<Vec3> curve_through(const std::vector<Vec3>& points, bool closed,
                                size_t most_chords = Spline::steps_per_span);

}  // namespace host
