// ACAD_PROXY_ENTITY and other entities that bring their picture along.
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/polyline_path.h"
#include "platform/host/view/proxy_stream.h"
#include "platform/host/view/proxy_traits.h"
#include "platform/host/view/text_codes.h"
#include "platform/host/view/text_item.h"

namespace host {

namespace {

constexpr size_t header_size = 8;
constexpr size_t point_size = 24;
constexpr double endless = 1e10;

/// Draws one entity's picture. What is not understood is passed over; what is cut off ends it.
class ProxyPainter {
  public:
    explicit ProxyPainter(const EntityScope& scope) : scope_(scope), traits_(scope) {}

    void paint(std::string_view bytes) {
        ProxyStream stream(bytes);
        stream.take(header_size);  // lengths that say nothing new
        while (stream.left() >= header_size) {
            const uint32_t size = stream.word();
            const auto part = static_cast<ProxyPart>(stream.word());
            const std::string_view body = size < header_size ? std::string_view() : stream.take(size - header_size);
            if (size < header_size || stream.ended()) {
                return;
            }
            if (!traits_.take(part, ProxyStream(body)) && traits_.shown()) {
                draw(part, body);
            }
        }
    }

  private:
    void draw(ProxyPart part, std::string_view body);
    void draw_circle(const Vec3& centre, double radius, const Vec3& normal);
    void draw_arc(ProxyStream body);
    void draw_through_points(ProxyStream body, bool whole);
    void draw_polyline(ProxyStream body, bool closed);
    void draw_mesh(ProxyStream body);
    void draw_shell(ProxyStream body);
    void draw_text(ProxyStream body, ProxyPart part);
    void draw_endless(ProxyStream body, bool both_ways);
    void draw_light_polyline(std::string_view body);

    Transform3 map() const { return traits_.map(); }
    std::vector<Vec3> take_points(ProxyStream& body, uint64_t count) const {
        std::vector<Vec3> points;
        for (; count > 0 && body.left() >= point_size; --count) {
            points.push_back(body.point());
        }
        return points;
    }
    void outline(std::vector<Vec2> points, bool closed);

    const EntityScope& scope_;
    ProxyTraits traits_;
};

void ProxyPainter::draw(ProxyPart part, std::string_view bytes) {
    ProxyStream body(bytes);
    switch (part) {
        case ProxyPart::circle: {
            const Vec3 centre = body.point();
            const double radius = body.real();
            draw_circle(centre, radius, body.point());
            break;
        }
        case ProxyPart::circle_by_points:
        case ProxyPart::arc_by_points:
            draw_through_points(body, part == ProxyPart::circle_by_points);
            break;
        case ProxyPart::arc:
            draw_arc(body);
            break;
        case ProxyPart::polyline:
        case ProxyPart::polyline_with_normal:
        case ProxyPart::polygon:
            draw_polyline(body, part == ProxyPart::polygon);
            break;
        case ProxyPart::mesh:
            draw_mesh(body);
            break;
        case ProxyPart::shell:
            draw_shell(body);
            break;
        case ProxyPart::text:
        case ProxyPart::styled_text:
        case ProxyPart::wide_text:
        case ProxyPart::styled_wide_text:
            draw_text(body, part);
            break;
        case ProxyPart::construction_line:
        case ProxyPart::ray:
            draw_endless(body, part == ProxyPart::construction_line);
            break;
        case ProxyPart::light_polyline:
            draw_light_polyline(bytes);
            break;
        default:
            return;
    }
    traits_.end_shape();
}

void ProxyPainter::outline(std::vector<Vec2> points, bool closed) {
    if (closed && traits_.filled()) {
        scope_.out.fill(points);
        return;
    }
    if (closed && !points.empty()) {
        points.push_back(points.front());
    }
    scope_.out.strip(points);
}

void ProxyPainter::draw_circle(const Vec3& centre, double radius, const Vec3& normal) {
    const Transform3 plane = Transform3::extrusion(normal);
    const Arc circle{map()(centre).plan(), map().vector(plane.x * radius).plan(),
                     map().vector(plane.y * radius).plan()};
    if (traits_.filled() && std::isfinite(radius) && radius > 0) {
        std::vector<Vec2> points;
        circle.flatten(radius / 1000, points, scope_.out.budget().most_chords());
        scope_.out.fill(points);
    } else {
        scope_.out.arc(circle);
    }
}

void ProxyPainter::draw_arc(ProxyStream body) {
    const Vec3 centre = body.point();
    const double radius = body.real();
    const Vec3 normal = body.point();
    const Vec3 start = body.point();
    const double sweep = body.real();
    const Vec3 along = start * (1 / start.length());
    const Vec3 across = cross(normal * (1 / normal.length()), along);
    scope_.out.arc(
        {map()(centre).plan(), map().vector(along * radius).plan(), map().vector(across * radius).plan(), 0, sweep});
}

/// Draws the circle or the arc through three points, as seen from above.
void ProxyPainter::draw_through_points(ProxyStream body, bool whole) {
    const Vec2 a = map()(body.point()).plan();
    const Vec2 b = map()(body.point()).plan() - a;
    const Vec2 c = map()(body.point()).plan() - a;
    const double twice_area = 2 * cross(b, c);
    if (twice_area == 0) {
        return;
    }
    const Vec2 to_centre = (c.left() * dot(b, b) - b.left() * dot(c, c)) * (-1 / twice_area);
    const double radius = to_centre.length();
    Arc arc{a + to_centre, {radius, 0}, {0, radius}, std::atan2(-to_centre.y, -to_centre.x)};
    if (!whole) {
        const Vec2 last = c - to_centre;
        const double turn = positive_sweep(arc.start, std::atan2(last.y, last.x));
        arc.sweep = twice_area > 0 ? turn : turn - 2 * pi;
    }
    scope_.out.arc(arc);
}

void ProxyPainter::draw_polyline(ProxyStream body, bool closed) {
    std::vector<Vec2> points;
    const uint32_t count = body.word();
    for (const Vec3& point : take_points(body, count)) {
        points.push_back(map()(point).plan());
    }
    outline(std::move(points), closed);
}

void ProxyPainter::draw_mesh(ProxyStream body) {
    const uint64_t rows = body.word();
    const uint64_t columns = body.word();
    const std::vector<Vec3> points = take_points(body, rows * columns);
    if (rows == 0 || columns == 0 || points.size() != rows * columns) {
        return;
    }
    for (size_t i = 0; i < points.size(); ++i) {
        const Vec2 from = map()(points[i]).plan();
        if ((i + 1) % columns != 0) {
            scope_.out.line(from, map()(points[i + 1]).plan());
        }
        if (i + columns < points.size()) {
            scope_.out.line(from, map()(points[i + columns]).plan());
        }
    }
}

/// Faces are numbers of points, each behind its count; a negative count is that of a hole.
void ProxyPainter::draw_shell(ProxyStream body) {
    const uint32_t point_count = body.word();
    const std::vector<Vec3> points = take_points(body, point_count);
    int64_t entries = body.word();
    while (entries > 0 && !body.ended()) {
        const auto said = static_cast<int32_t>(body.word());
        const int64_t count = std::abs(static_cast<int64_t>(said));
        entries -= count + 1;
        std::vector<Vec2> face;
        for (int64_t i = 0; i < count && body.left() >= sizeof(uint32_t); ++i) {
            const uint32_t number = body.word();
            if (number < points.size()) {
                face.push_back(map()(points[number]).plan());
            }
        }
        outline(std::move(face), said > 0);
    }
}

void ProxyPainter::draw_text(ProxyStream body, ProxyPart part) {
    const Vec3 position = body.point();
    const Vec3 normal = body.point();
    const Vec3 direction = body.point();
    const bool styled = part == ProxyPart::styled_text || part == ProxyPart::styled_wide_text;
    const bool wide = part == ProxyPart::wide_text || part == ProxyPart::styled_wide_text;
    std::wstring value;
    const auto take_value = [&] { value = wide ? body.wide_text() : scope_.fields.decode(body.text()); };
    if (styled) {
        take_value();
        body.take(8);  // its length, and whether its codes stand for themselves
    }
    const double height = body.real();
    const double width_factor = body.real();
    const double slant = body.real();
    if (!styled) {
        take_value();
    }
    const Vec3 along = direction * (1 / direction.length());
    const Vec3 up = cross(normal * (1 / normal.length()), along);
    Transform3 frame;
    frame.x = along * (height * width_factor);
    frame.y = up * height + along * (height * std::tan(std::clamp(slant, -1.4, 1.4)));
    frame.origin = position;
    TextItem item;
    item.text = plain_text(value);
    item.from_right = runs_from_right(item.text);
    item.font = scope_.styles.named({}).font;
    item.frame = (map() * frame).plan();
    scope_.out.text(std::move(item));
}

void ProxyPainter::draw_endless(ProxyStream body, bool both_ways) {
    const Vec3 from = body.point();
    const Vec3 run = body.point() - from;
    const Vec3 reach = run * (endless / run.length());
    scope_.out.endless_line(map()(both_ways ? from - reach : from).plan(), map()(from + reach).plan());
}

void ProxyPainter::draw_light_polyline(std::string_view body) {
    constexpr uint32_t has_normal = 1;
    constexpr uint32_t has_thickness = 2;
    constexpr uint32_t has_width = 4;
    constexpr uint32_t has_elevation = 8;
    constexpr uint32_t has_bulges = 16;
    constexpr uint32_t has_widths = 32;
    constexpr uint32_t closed = 512;
    ProxyBits bits(body);
    const uint32_t flags = bits.short_number();
    const auto said = [flags](uint32_t flag) { return (flags & flag) != 0; };
    const double width = said(has_width) ? bits.real() : 0;
    const double elevation = said(has_elevation) ? bits.real() : 0;
    if (said(has_thickness)) {
        bits.real();
    }
    Vec3 normal{0, 0, 1};
    if (said(has_normal)) {
        const double x = bits.real();
        const double y = bits.real();
        normal = {x, y, bits.real()};
    }
    const uint32_t count = bits.long_number();
    const uint32_t bulges = said(has_bulges) ? bits.long_number() : 0;
    const uint32_t ids = scope_.drawing.version() >= "AC1024" ? bits.long_number() : 0;
    const uint32_t widths = said(has_widths) ? bits.long_number() : 0;
    std::vector<PathVertex> path;
    Vec2 at;
    for (uint32_t i = 0; i < count && !bits.ended(); ++i) {
        const double x = i == 0 ? bits.raw_real() : bits.real_like(at.x);
        at = {x, i == 0 ? bits.raw_real() : bits.real_like(at.y)};
        path.push_back({{at.x, at.y, elevation}, 0, width, width});
    }
    for (uint32_t i = 0; i < bulges && i < path.size(); ++i) {
        path[i].bulge = bits.real();
    }
    for (uint32_t i = 0; i < ids && !bits.ended(); ++i) {
        bits.long_number();
    }
    for (uint32_t i = 0; i < widths && i < path.size(); ++i) {
        path[i].start_width = bits.real();
        path[i].end_width = bits.real();
    }
    if (!bits.ended()) {
        add_path(path, said(closed), map() * Transform3::extrusion(normal), scope_.out);
    }
}

}  // namespace

bool draw_proxy_graphics(const EntityScope& scope) {
    const std::optional<std::string> bytes = proxy_graphics_of(scope.fields);
    if (bytes) {
        ProxyPainter(scope).paint(*bytes);
    }
    return bytes.has_value();
}

}  // namespace host
