// Lines, arcs, ellipses, splines, points, and what is made of single lines: multilines and shapes.
#include "base/code_page.h"
#include "platform/host/view/curves.h"
#include "platform/host/view/entity_scope.h"

namespace host {

namespace {

/// Half the length at which an endless line is cut: beyond any drawing, within exact arithmetic.
constexpr double endless = 1e10;
constexpr size_t steps_of_a_point = 10;

Arc circle_arc(const EntityScope& scope, double start, double sweep) {
    const Transform3 map = scope.object_space();
    const double radius = scope.fields.real(40);
    return {map(scope.fields.point(10)).plan(), map.vector({radius, 0, 0}).plan(), map.vector({0, radius, 0}).plan(),
            start, sweep};
}

std::vector<Vec2> plan(const Transform3& map, const std::vector<Vec3>& points) {
    std::vector<Vec2> seen;
    seen.reserve(points.size());
    for (const Vec3& point : points) {
        seen.push_back(map(point).plan());
    }
    return seen;
}

}  // namespace

void draw_line(const EntityScope& scope) {
    const Vec3 from = scope.fields.point(10);
    scope.out.line(scope.world(from), scope.world(scope.fields.point(11, from)));
}

void draw_circle(const EntityScope& scope) {
    scope.out.arc(circle_arc(scope, 0, 2 * pi));
}

void draw_arc(const EntityScope& scope) {
    const double start = scope.fields.angle(50);
    scope.out.arc(circle_arc(scope, start, positive_sweep(start, scope.fields.angle(51))));
}

void draw_ellipse(const EntityScope& scope) {
    const Vec3 major = scope.fields.point(11, {1, 0, 0});
    const Vec3 normal = object_coordinates(scope.fields).z;
    const Vec3 minor = cross(normal, major) * scope.fields.real(40, 1);
    const double start = scope.fields.real(41, 0);
    const double sweep = positive_sweep(start, scope.fields.real(42, 2 * pi));
    scope.out.arc({scope.world(scope.fields.point(10)), scope.space.vector(major).plan(),
                   scope.space.vector(minor).plan(), start, sweep});
}

void draw_spline(const EntityScope& scope) {
    Spline spline;
    spline.degree = static_cast<int>(scope.fields.integer(71, 3));
    spline.knots = scope.fields.reals(40);
    spline.controls = scope.fields.points(10);
    spline.weights = scope.fields.reals(41);
    if (spline.valid()) {
        scope.out.strip(plan(scope.space, spline.flatten(scope.out.budget().most_chords())));
        return;
    }
    const bool closed = (scope.fields.integer(70) & 1) != 0;
    const std::vector<Vec3> fit = scope.fields.points(11);
    scope.out.strip(plan(scope.space,
                         curve_through(fit.empty() ? spline.controls : fit, closed, scope.out.budget().most_chords())));
}

/// Draws what $PDMODE says: a dot, nothing, or a mark, and what stands around it.
void draw_point(const EntityScope& scope) {
    constexpr int circled = 32;
    constexpr int boxed = 64;
    enum Mark { single_dot, nothing, upright_cross, slanted_cross, tick };
    const auto [mode, size] = scope.settings.point_marks();
    const double half = size / 2;
    const int mark = mode & 7;
    if (mark == single_dot || !(size > 0)) {
        scope.out.dot(scope.world(scope.fields.point(10)));
    }
    if (mode == single_dot || !(size > 0)) {
        return;
    }
    const Transform3 place = scope.space * object_coordinates(scope.fields);
    Transform3 map = place * Transform3::rotation(-scope.fields.angle(50));
    map.origin = scope.space(scope.fields.point(10));
    const auto at = [&map](double x, double y) { return map({x, y, 0}).plan(); };
    if (mark == upright_cross) {
        scope.out.line(at(-size, 0), at(size, 0));
        scope.out.line(at(0, -size), at(0, size));
    } else if (mark == slanted_cross) {
        scope.out.line(at(-size, -size), at(size, size));
        scope.out.line(at(-size, size), at(size, -size));
    } else if (mark == tick) {
        scope.out.line(at(0, 0), at(0, half));
    }
    if ((mode & circled) != 0) {
        scope.out.arc({map.origin.plan(), map.vector({half, 0, 0}).plan(), map.vector({0, half, 0}).plan()});
    }
    if ((mode & boxed) != 0) {
        scope.out.strip({at(-half, -half), at(half, -half), at(half, half), at(-half, half), at(-half, -half)});
    }
}

void draw_ray(const EntityScope& scope) {
    const Vec3 from = scope.fields.point(10);
    scope.out.endless_line(scope.world(from), scope.world(from + scope.fields.point(11) * endless));
}

void draw_construction_line(const EntityScope& scope) {
    const Vec3 through = scope.fields.point(10);
    const Vec3 reach = scope.fields.point(11) * endless;
    scope.out.endless_line(scope.world(through - reach), scope.world(through + reach));
}

/// A multiline's elements stand at distances that each vertex gives along its mitre.
void draw_multiline(const EntityScope& scope) {
    struct Vertex {
        Vec3 point;
        Vec3 mitre;
        std::vector<double> distances;
    };
    std::vector<Vertex> vertices;
    bool first_of_element = false;
    for (const dxf::Group& group : scope.fields.groups()) {
        if (group.code == 11) {
            vertices.push_back({{group.real(), 0, 0}, {}, {}});
        } else if (vertices.empty()) {
            continue;
        } else if (group.code == 21) {
            vertices.back().point.y = group.real();
        } else if (group.code == 13) {
            vertices.back().mitre.x = group.real();
        } else if (group.code == 23) {
            vertices.back().mitre.y = group.real();
        } else if (group.code == 74) {
            first_of_element = group.integer() > 0;
        } else if (group.code == 41 && first_of_element) {
            vertices.back().distances.push_back(group.real());
            first_of_element = false;
        }
    }
    const bool closed = (scope.fields.integer(71) & 2) != 0;
    const size_t elements = vertices.empty() ? 0 : vertices.front().distances.size();
    for (size_t element = 0; element < elements && scope.out.budget().work(vertices.size() * steps_of_a_point);
         ++element) {
        std::vector<Vec2> line;
        for (const Vertex& vertex : vertices) {
            const double distance = element < vertex.distances.size() ? vertex.distances[element] : 0;
            line.push_back(scope.world(vertex.point + vertex.mitre * distance));
        }
        if (closed) {
            line.push_back(line.front());
        }
        scope.out.strip(line);
    }
}

/// Draws the strokes that the files of compiled shapes beside the drawing have for the shape.
bool draw_shape(const EntityScope& scope) {
    constexpr double steepest = 85 * pi / 180;
    const std::string name = base::utf8_from_wide(scope.fields.text(2));
    const std::vector<ShapeStroke>& strokes = scope.settings.shape(name);
    const double size = scope.fields.real(40, 1);
    if (strokes.empty() || !scope.out.budget().work(strokes.size())) {
        return false;
    }
    Transform3 slanted;
    slanted.x = {scope.fields.real(41, 1), 0, 0};
    slanted.y = {std::tan(std::clamp(scope.fields.angle(51), -steepest, steepest)), 1, 0};
    const Transform3 map = scope.object_space() * Transform3::translation(scope.fields.point(10)) *
                           Transform3::rotation(scope.fields.angle(50)) * Transform3::scaling({size, size, size}) *
                           slanted;
    for (const ShapeStroke& stroke : strokes) {
        add_path(stroke, false, map, scope.out);
    }
    return true;
}

}  // namespace host
