// Curves, and their straight approximation: arcs of circles and ellipses, and splines.
#pragma once

#include <vector>

#include "platform/host/view/geometry.h"

namespace host {

/// The points centre + u·cos(t) + v·sin(t) for t from start to start + sweep. Any affine image of a circle's or an
/// ellipse's arc is one again. Radians; a negative sweep runs backwards.
struct Arc {
    Vec2 centre;
    Vec2 u;
    Vec2 v;
    double start = 0;
    double sweep = 2 * pi;

    Vec2 at(double t) const { return centre + u * std::cos(t) + v * std::sin(t); }
    Vec2 begin() const { return at(start); }
    Vec2 end() const { return at(start + sweep); }
    Box2 box() const;
    /// Into how many chords the arc must be cut so that none is further from it than `tolerance`.
    size_t chords(double tolerance) const;
    /// Appends the begin and the end of each chord, of which there are `most` at most.
    void flatten(double tolerance, std::vector<Vec2>& points, size_t most = most_chords) const;
    static constexpr size_t most_chords = 20000;
};

Arc image(const Affine2& map, const Arc& arc);

/// Brings the end of an arc given by two angles into one turn after the start: the sweep is in (0, 2π]. Equal angles
/// are a full turn, and so is what exceeds one only by rounding.
double positive_sweep(double start, double end);

/// The arc of a polyline's segment. The bulge is the tangent of a quarter of the included angle, positive
/// counter-clockwise; it must not be 0, nor the two points equal.
Arc bulge_arc(Vec2 from, Vec2 to, double bulge);

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
