// ACAD_PROXY_ENTITY and other entities that bring their picture along.
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/polyline_path.h"
#include "platform/host/view/proxy_stream.h"
#include "platform/host/view/text_codes.h"
#include "platform/host/view/text_item.h"

namespace host {

namespace {

enum class Part : uint32_t {
    circle = 2,
    circle_by_points = 3,
    arc = 4,
    arc_by_points = 5,
    polyline = 6,
    polygon = 7,
    mesh = 8,
    shell = 9,
    text = 10,
    styled_text = 11,
    construction_line = 12,
    ray = 13,
    colour = 14,
    layer = 16,
    line_type = 18,
    fill = 20,
    true_colour = 22,
    line_weight = 23,
    line_type_scale = 24,
    push_matrix = 29,
    push_other_matrix = 30,
    pop_matrix = 31,
    polyline_with_normal = 32,
    light_polyline = 33,
    wide_text = 36,
    styled_wide_text = 38,
};

constexpr uint32_t of_block = 0;
constexpr uint32_t of_layer = 256;
constexpr size_t header_size = 8;
constexpr size_t point_size = 24;
constexpr size_t most_matrices = 64;
constexpr double endless = 1e10;

/// Draws one entity's picture. What is not understood is passed over; what is cut off ends it.
class ProxyPainter {
  public:
    explicit ProxyPainter(const EntityScope& scope)
        : scope_(scope),
          own_ink_(scope.out.ink()),
          own_pattern_(scope.out.pattern()),
          own_weight_(scope.out.weight()),
          layer_(scope.drawing.layer_names().find(scope.fields.text(8))) {}

    void paint(std::string_view bytes) {
        ProxyStream stream(bytes);
        stream.take(header_size);  // lengths that say nothing new
        while (stream.left() >= header_size) {
            const uint32_t size = stream.word();
            const auto part = static_cast<Part>(stream.word());
            const std::string_view body = size < header_size ? std::string_view() : stream.take(size - header_size);
            if (size < header_size || stream.ended()) {
                return;
            }
            if (!set_trait(part, ProxyStream(body)) && scope_.layers.shows_part(layer_)) {
                draw(part, body);
            }
        }
    }

  private:
    bool set_trait(Part part, ProxyStream body);
    void set_colour(uint32_t index);
    void set_true_colour(uint32_t colour);
    void set_line_type(uint32_t number);
    void set_line_weight(int32_t weight);
    void set_layer(uint32_t number);
    void push_matrix(ProxyStream body);

    void draw(Part part, std::string_view body);
    void draw_circle(const Vec3& centre, double radius, const Vec3& normal);
    void draw_arc(ProxyStream body);
    void draw_through_points(ProxyStream body, bool whole);
    void draw_polyline(ProxyStream body, bool closed);
    void draw_mesh(ProxyStream body);
    void draw_shell(ProxyStream body);
    void draw_text(ProxyStream body, Part part);
    void draw_endless(ProxyStream body, bool both_ways);
    void draw_light_polyline(std::string_view body);

    Transform3 map() const { return matrices_.empty() ? scope_.space : scope_.space * matrices_.back(); }
    std::vector<Vec3> take_points(ProxyStream& body, uint64_t count) const {
        std::vector<Vec3> points;
        for (; count > 0 && body.left() >= point_size; --count) {
            points.push_back(body.point());
        }
        return points;
    }
    void outline(std::vector<Vec2> points, bool closed);

    const EntityScope& scope_;
    const Ink own_ink_;
    const uint16_t own_pattern_;
    const uint8_t own_weight_;
    dxf::NameId layer_;
    uint32_t colour_ = of_block;
    bool filled_ = false;
    double line_type_scale_ = 1;
    std::vector<Transform3> matrices_;  ///< from the current coordinates to the entity's
};

bool ProxyPainter::set_trait(Part part, ProxyStream body) {
    switch (part) {
        case Part::colour:
            set_colour(body.word());
            return true;
        case Part::true_colour:
            set_true_colour(body.word());
            return true;
        case Part::layer:
            set_layer(body.word());
            return true;
        case Part::line_type:
            set_line_type(body.word());
            return true;
        case Part::line_weight:
            set_line_weight(static_cast<int32_t>(body.word()));
            return true;
        case Part::line_type_scale:
            line_type_scale_ = body.real();
            return true;
        case Part::fill:
            filled_ = body.word() == 1;
            return true;
        case Part::push_matrix:
        case Part::push_other_matrix:
            push_matrix(body);
            return true;
        case Part::pop_matrix:
            if (!matrices_.empty()) {
                matrices_.pop_back();
            }
            return true;
        default:
            return false;
    }
}

/// What has the colour of its block has that of the entity.
void ProxyPainter::set_colour(uint32_t index) {
    colour_ = index;
    scope_.out.set_ink(index == of_block   ? own_ink_
                       : index >= of_layer ? scope_.layers.ink(layer_)
                                           : indexed_ink(static_cast<int>(index)));
}

/// The highest byte tells what the others are.
void ProxyPainter::set_true_colour(uint32_t colour) {
    switch (colour >> 24) {
        case 0xC0:
            set_colour(of_layer);
            break;
        case 0xC1:
            set_colour(of_block);
            break;
        case 0xC2:
            colour_ = 1;  // of its own
            scope_.out.set_ink(Ink::rgb(colour));
            break;
        case 0xC3:
            set_colour(colour & 0xFF);
            break;
        default:
            break;
    }
}

/// Layers and linetypes are named by their places in the tables.
void ProxyPainter::set_layer(uint32_t number) {
    const dxf::Table* const table = scope_.drawing.table("LAYER");
    if (table != nullptr && number < table->entries.size()) {
        layer_ = scope_.drawing.record(table->entries[number]).layer;
        if (colour_ == of_layer) {
            set_colour(of_layer);
        }
    }
}

void ProxyPainter::set_line_type(uint32_t number) {
    const dxf::Table* const table = scope_.drawing.table("LTYPE");
    const bool known = table != nullptr && number < table->entries.size();
    const std::wstring name = known ? scope_.text_of(table->entries[number], 2) : std::wstring();
    const bool inherited = !known || name.starts_with(L"By") || name.starts_with(L"BY");
    scope_.out.set_pattern(inherited ? own_pattern_ : scope_.line_types.pattern(name, line_type_scale_));
}

/// What has the weight of its layer or block has that of the entity.
void ProxyPainter::set_line_weight(int32_t weight) {
    scope_.out.set_weight(weight < 0 ? own_weight_ : LineWeight::in_pixels(weight));
}

/// Four rows of four, of which the last says nothing.
void ProxyPainter::push_matrix(ProxyStream body) {
    Vec3 rows[3];
    double moved[3];
    for (size_t i = 0; i < 3; ++i) {
        rows[i] = body.point();
        moved[i] = body.real();
    }
    const Transform3 pushed{{rows[0].x, rows[1].x, rows[2].x},
                            {rows[0].y, rows[1].y, rows[2].y},
                            {rows[0].z, rows[1].z, rows[2].z},
                            {moved[0], moved[1], moved[2]}};
    if (matrices_.size() < most_matrices) {
        matrices_.push_back(matrices_.empty() ? pushed : matrices_.back() * pushed);
    }
}

void ProxyPainter::draw(Part part, std::string_view bytes) {
    ProxyStream body(bytes);
    switch (part) {
        case Part::circle: {
            const Vec3 centre = body.point();
            const double radius = body.real();
            draw_circle(centre, radius, body.point());
            break;
        }
        case Part::circle_by_points:
        case Part::arc_by_points:
            draw_through_points(body, part == Part::circle_by_points);
            break;
        case Part::arc:
            draw_arc(body);
            break;
        case Part::polyline:
        case Part::polyline_with_normal:
        case Part::polygon:
            draw_polyline(body, part == Part::polygon);
            break;
        case Part::mesh:
            draw_mesh(body);
            break;
        case Part::shell:
            draw_shell(body);
            break;
        case Part::text:
        case Part::styled_text:
        case Part::wide_text:
        case Part::styled_wide_text:
            draw_text(body, part);
            break;
        case Part::construction_line:
        case Part::ray:
            draw_endless(body, part == Part::construction_line);
            break;
        case Part::light_polyline:
            draw_light_polyline(bytes);
            break;
        default:
            return;
    }
    filled_ = false;  // for one shape only
}

void ProxyPainter::outline(std::vector<Vec2> points, bool closed) {
    if (closed && filled_) {
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
    if (filled_ && std::isfinite(radius) && radius > 0) {
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

/// Through three points, seen from above.
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

void ProxyPainter::draw_text(ProxyStream body, Part part) {
    const Vec3 position = body.point();
    const Vec3 normal = body.point();
    const Vec3 direction = body.point();
    const bool styled = part == Part::styled_text || part == Part::styled_wide_text;
    const bool wide = part == Part::wide_text || part == Part::styled_wide_text;
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
