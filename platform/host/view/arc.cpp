#include "platform/host/view/arc.h"

namespace host {

namespace {

/// Whether an angle, up to whole turns, lies on the arc.
bool covers(const Arc& arc, double angle) {
    const double from = arc.sweep < 0 ? arc.start + arc.sweep : arc.start;
    const double turns = std::ceil((from - angle) / (2 * pi));
    return angle + turns * 2 * pi <= from + std::fabs(arc.sweep);
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

}  // namespace host
