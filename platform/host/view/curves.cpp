#include "platform/host/view/curves.h"

namespace host {

namespace {

/// Whether an angle, up to whole turns, lies on the arc.
bool covers(const Arc& arc, double angle) {
    const double from = arc.sweep < 0 ? arc.start + arc.sweep : arc.start;
    const double turns = std::ceil((from - angle) / (2 * pi));
    return angle + turns * 2 * pi <= from + std::fabs(arc.sweep);
}

constexpr int highest_degree = 25;
constexpr size_t most_points = 2'000'000;

/// Chords for each of so many spans.
int steps_for(size_t spans, size_t most_chords) {
    const size_t steps = std::min({Spline::steps_per_span, most_chords, most_points / (spans + 1)});
    return static_cast<int>(std::max(steps, size_t{1}));
}

struct Weighted {
    Vec3 point;  ///< multiplied by the weight
    double weight = 1;
};

Weighted blend(const Weighted& a, const Weighted& b, double part) {
    return {a.point * (1 - part) + b.point * part, a.weight * (1 - part) + b.weight * part};
}

/// Solves a tridiagonal system with 1 beside the diagonal scaled by the given bands; all sizes equal.
std::vector<Vec3> solve(const std::vector<double>& below, std::vector<double> diagonal,
                        const std::vector<double>& above, std::vector<Vec3> right) {
    for (size_t i = 1; i < right.size(); ++i) {
        const double factor = below[i] / diagonal[i - 1];
        diagonal[i] -= factor * above[i - 1];
        right[i] = right[i] - right[i - 1] * factor;
    }
    for (size_t i = right.size(); i-- > 0;) {
        const Vec3 known = i + 1 < right.size() ? right[i + 1] * above[i] : Vec3{};
        right[i] = (right[i] - known) * (1 / diagonal[i]);
    }
    return right;
}

/// The natural spline's second derivatives at the points, whose distances are `spans`.
std::vector<Vec3> curvatures(const std::vector<Vec3>& points, const std::vector<double>& spans) {
    const size_t count = points.size();
    std::vector<double> below(count, 0);
    std::vector<double> diagonal(count, 1);
    std::vector<double> above(count, 0);
    std::vector<Vec3> right(count);
    for (size_t i = 1; i + 1 < count; ++i) {
        below[i] = spans[i - 1];
        above[i] = spans[i];
        diagonal[i] = 2 * (spans[i - 1] + spans[i]);
        right[i] =
            ((points[i + 1] - points[i]) * (1 / spans[i]) - (points[i] - points[i - 1]) * (1 / spans[i - 1])) * 6;
    }
    return solve(below, std::move(diagonal), above, std::move(right));
}

Vec3 on_span(const Vec3& from, const Vec3& to, const Vec3& bend_from, const Vec3& bend_to, double span, double part) {
    const double rest = 1 - part;
    const double cube = span * span / 6;
    return from * rest + to * part + bend_from * ((rest * rest * rest - rest) * cube) +
           bend_to * ((part * part * part - part) * cube);
}

}  // namespace

Box2 Arc::box() const {
    Box2 result;
    result.add(begin());
    result.add(end());
    const double across = std::atan2(v.x, u.x);
    const double upright = std::atan2(v.y, u.y);
    for (const double extreme : {across, across + pi, upright, upright + pi}) {
        if (covers(*this, extreme)) {
            result.add(at(extreme));
        }
    }
    return result;
}

size_t Arc::chords(double tolerance) const {
    const double radius = std::max(u.length(), v.length());
    if (!(radius > tolerance) || !(tolerance > 0)) {
        return 4;
    }
    const double step = std::sqrt(8 * tolerance / radius);  // a chord's angle, by the first term of its height
    const double count = std::ceil(std::fabs(sweep) / step);
    return count < most_chords ? std::max(static_cast<size_t>(count), size_t{4}) : most_chords;
}

void Arc::flatten(double tolerance, std::vector<Vec2>& points, size_t most) const {
    const size_t count = std::min(chords(tolerance), std::max(most, size_t{1}));
    const Vec2 step = direction(sweep / static_cast<double>(count));
    Vec2 turned = direction(start);
    for (size_t i = 0; i <= count; ++i) {
        points.push_back(centre + u * turned.x + v * turned.y);
        turned = {turned.x * step.x - turned.y * step.y, turned.x * step.y + turned.y * step.x};
    }
}

Arc image(const Affine2& map, const Arc& arc) {
    return {map(arc.centre), map.vector(arc.u), map.vector(arc.v), arc.start, arc.sweep};
}

double positive_sweep(double start, double end) {
    const double turn = 2 * pi;
    constexpr double rounding = 1e-4;  // of angles written with few digits
    if (end - start >= turn && end - start < turn + rounding) {
        return turn;
    }
    const double sweep = std::fmod(end - start, turn);
    constexpr double same = 1e-12;
    return sweep > same ? sweep : sweep + turn;
}

Arc bulge_arc(Vec2 from, Vec2 to, double bulge) {
    const Vec2 chord = to - from;
    const Vec2 centre = from + chord * 0.5 + chord.left() * ((1 - bulge * bulge) / (4 * bulge));
    const Vec2 spoke = from - centre;
    const double radius = spoke.length();
    return {centre, {radius, 0}, {0, radius}, std::atan2(spoke.y, spoke.x), 4 * std::atan(bulge)};
}

bool Spline::valid() const {
    if (degree < 1 || degree > highest_degree || controls.size() < static_cast<size_t>(degree) + 1 ||
        knots.size() != controls.size() + static_cast<size_t>(degree) + 1) {
        return false;
    }
    return std::is_sorted(knots.begin(), knots.end()) && std::isfinite(knots.front()) && std::isfinite(knots.back()) &&
           (weights.empty() || weights.size() == controls.size());
}

Vec3 Spline::at(double t) const {
    const auto p = static_cast<size_t>(degree);
    const auto last = knots.begin() + static_cast<std::ptrdiff_t>(controls.size());
    t = std::clamp(t, knots[p], *last);
    const auto above = std::upper_bound(knots.begin() + degree + 1, last, t);
    const auto span = static_cast<size_t>(above - knots.begin()) - 1;
    Weighted work[highest_degree + 1];
    for (size_t i = 0; i <= p; ++i) {
        const size_t control = span - p + i;
        const double weight = weights.empty() ? 1 : weights[control];
        work[i] = {controls[control] * weight, weight};
    }
    for (size_t level = 1; level <= p; ++level) {
        for (size_t i = p; i >= level; --i) {
            const double low = knots[span - p + i];
            const double width = knots[span + 1 + i - level] - low;
            work[i] = blend(work[i - 1], work[i], width > 0 ? (t - low) / width : 0);
        }
    }
    return work[p].weight != 0 ? work[p].point * (1 / work[p].weight) : work[p].point;
}

std::vector<Vec3> Spline::flatten(size_t most_chords) const {
    std::vector<Vec3> points;
    const int steps = degree == 1 ? 1 : steps_for(controls.size(), most_chords);
    const auto first = static_cast<size_t>(degree);
    points.push_back(at(knots[first]));
    for (size_t span = first; span < controls.size(); ++span) {
        const double width = knots[span + 1] - knots[span];
        for (int step = 1; width > 0 && step <= steps; ++step) {
            points.push_back(at(step == steps ? knots[span + 1] : knots[span] + width * step / steps));
        }
    }
    return points;
}

std::vector<Vec3> curve_through(const std::vector<Vec3>& points, bool closed, size_t most_chords) {
    std::vector<Vec3> nodes;
    for (const Vec3& point : points) {
        if (nodes.empty() || (point - nodes.back()).length() > 0) {
            nodes.push_back(point);
        }
    }
    if (closed && nodes.size() > 2) {
        nodes.push_back(nodes.front());
    }
    if (nodes.size() < 3) {
        return nodes;
    }
    std::vector<double> spans;
    for (size_t i = 0; i + 1 < nodes.size(); ++i) {
        const double length = (nodes[i + 1] - nodes[i]).length();
        spans.push_back(length > 0 ? length : 1);
    }
    const std::vector<Vec3> bends = curvatures(nodes, spans);
    const int steps = steps_for(spans.size(), most_chords);
    std::vector<Vec3> curve{nodes.front()};
    for (size_t i = 0; i < spans.size(); ++i) {
        for (int step = 1; step <= steps; ++step) {
            curve.push_back(
                on_span(nodes[i], nodes[i + 1], bends[i], bends[i + 1], spans[i], static_cast<double>(step) / steps));
        }
    }
    return curve;
}

}  // namespace host
