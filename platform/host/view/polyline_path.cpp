#include "platform/host/view/polyline_path.h"

namespace host {

namespace {

/// Chords of a wide arc keep within this part of its radius.
constexpr double chord_error = 1.0 / 2000;

bool bulged(const PathVertex& vertex, const PathVertex& next) {
    constexpr double straight = 1e-9;
    return std::fabs(vertex.bulge) > straight && std::isfinite(vertex.bulge) &&
           !(vertex.point.plan() == next.point.plan());
}

Arc segment_arc(const PathVertex& vertex, const PathVertex& next) {
    return bulge_arc(vertex.point.plan(), next.point.plan(), vertex.bulge);
}

/// The image of an arc that lies at height z of the path's own plane.
Arc image(const Transform3& map, const Arc& arc, double z) {
    return {map({arc.centre.x, arc.centre.y, z}).plan(), map.vector({arc.u.x, arc.u.y, 0}).plan(),
            map.vector({arc.v.x, arc.v.y, 0}).plan(), arc.start, arc.sweep};
}

std::vector<Vec2> centre_line(const PathVertex& vertex, const PathVertex& next, size_t most_chords) {
    if (!bulged(vertex, next)) {
        return {vertex.point.plan(), next.point.plan()};
    }
    std::vector<Vec2> points;
    const Arc arc = segment_arc(vertex, next);
    arc.flatten(arc.u.length() * chord_error, points, most_chords);
    return points;
}

/// The unit vector to the left of the path at one of its points.
Vec2 normal_at(const std::vector<Vec2>& line, size_t i) {
    const Vec2 along = line[std::min(i + 1, line.size() - 1)] - line[i > 0 ? i - 1 : 0];
    const double length = along.length();
    return length > 0 ? along.left() * (1 / length) : Vec2{};
}

bool wide(const PathVertex& vertex) {
    return vertex.start_width > 0 || vertex.end_width > 0;
}

/// Fills the gap on the outer side of a corner between two wide segments up to where their edges meet.
void add_corner(const std::vector<Vec2>& before, const std::vector<Vec2>& after, const PathVertex& corner,
                double width_before, const Transform3& map, PictureBuilder& out) {
    const Vec2 at = corner.point.plan();
    const Vec2 first = normal_at(before, before.size() - 1);
    const Vec2 second = normal_at(after, 0);
    const double turn = cross(first, second);
    const double opening = 1 + dot(first, second);
    constexpr double straight = 1e-6;
    constexpr double sharpest = 0.2;  // sharper corners are cut off
    if (std::fabs(turn) < straight) {
        return;
    }
    const double outward = turn > 0 ? -0.5 : 0.5;
    const Vec2 from = first * (width_before * outward);
    const Vec2 to = second * (corner.start_width * outward);
    std::vector<Vec2> polygon{at, at + from, at + to};
    if (opening > sharpest && width_before == corner.start_width) {
        polygon.insert(polygon.begin() + 2, at + (from + to) * (1 / opening));
    }
    for (Vec2& point : polygon) {
        point = map({point.x, point.y, corner.point.z}).plan();
    }
    out.fill(polygon);
}

void add_wide_segment(const std::vector<Vec2>& line, const PathVertex& vertex, const Transform3& map,
                      PictureBuilder& out) {
    std::vector<Vec2> left;
    std::vector<Vec2> right;
    for (size_t i = 0; i < line.size(); ++i) {
        const double part = static_cast<double>(i) / static_cast<double>(line.size() - 1);
        const Vec2 half = normal_at(line, i) * ((vertex.start_width * (1 - part) + vertex.end_width * part) / 2);
        const auto place = [&](Vec2 point) { return map({point.x, point.y, vertex.point.z}).plan(); };
        left.push_back(place(line[i] + half));
        right.push_back(place(line[i] - half));
    }
    left.insert(left.end(), right.rbegin(), right.rend());
    out.fill(left);
}

}  // namespace

void add_path(const std::vector<PathVertex>& vertices, bool closed, const Transform3& map, PictureBuilder& out) {
    std::vector<Vec2> run;
    const auto end_run = [&] {
        if (run.size() > 1) {
            out.strip(run);
        }
        run.clear();
    };
    const size_t segments = vertices.size() < 2 ? 0 : vertices.size() - (closed ? 0 : 1);
    const auto line_from = [&](size_t i) {
        return centre_line(vertices[i % vertices.size()], vertices[(i + 1) % vertices.size()],
                           out.budget().most_chords());
    };
    std::vector<Vec2> line;  // of a wide segment that the one before it has needed for their corner
    for (size_t i = 0; i < segments; ++i) {
        const PathVertex& vertex = vertices[i];
        const PathVertex& next = vertices[(i + 1) % vertices.size()];
        if (wide(vertex)) {
            end_run();
            if (line.empty()) {
                line = line_from(i);
            }
            add_wide_segment(line, vertex, map, out);
            std::vector<Vec2> following;
            if (wide(next) && (closed || i + 1 < segments)) {
                following = line_from(i + 1);
                add_corner(line, following, next, vertex.end_width, map, out);
            }
            line = std::move(following);
        } else if (bulged(vertex, next)) {
            end_run();
            out.arc(image(map, segment_arc(vertex, next), vertex.point.z));
        } else {
            if (run.empty()) {
                run.push_back(map(vertex.point).plan());
            }
            run.push_back(map(next.point).plan());
        }
    }
    end_run();
}

}  // namespace host
