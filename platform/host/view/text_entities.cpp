// TEXT, ATTRIB, ATTDEF and MTEXT.
#include "platform/host/dxf/entities.h"
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/text_item.h"
#include "platform/host/view/text_layout.h"

namespace host {

namespace {

constexpr size_t longest_paragraphs = 1'000'000;  // characters
constexpr double descent = 0.3;                   // how far letters hang below the base line, of the text height

/// Horizontal alignment, group 72.
enum Justification { left, centre, right, aligned, middle, fit };

double at_most(double value, double limit) {
    return std::clamp(value, -limit, limit);
}

/// Text space (capitals 1 high) in a plane: turned, slanted and scaled about the anchor.
Transform3 text_frame(double height, double width_factor, double slant, double rotation) {
    Transform3 frame;
    constexpr double steepest = 85 * pi / 180;
    frame.x = {height * width_factor, 0, 0};
    frame.y = {height * std::tan(at_most(std::remainder(slant, 2 * pi), steepest)), height, 0};
    return Transform3::rotation(rotation) * frame;
}

/// How far the base line is above the anchor, in text heights.
double base_line_above(int vertical) {
    switch (vertical) {
        case 1:
            return descent;
        case 2:
            return -0.5;
        case 3:
            return -1;
        default:
            return 0;
    }
}

dxf::Text read_text(const EntityScope& scope, dxf::TextKind kind) {
    dxf::Text text;
    text.kind = kind;
    dxf::read(scope.fields, text);
    return text;
}

/// Draws the lines along a run, as wide as the run is estimated to be.
void draw_rules(const EntityScope& scope, const PlacedRun& placed, const Transform3& plane) {
    struct Rule {
        TextRun::Rule rule;
        double height;  // of the capitals'
    };
    constexpr Rule rules[] = {{TextRun::under, -0.2}, {TextRun::over, 1.2}, {TextRun::through, 0.4}};
    const double begin = placed.anchor == TextItem::Anchor::left     ? 0
                         : placed.anchor == TextItem::Anchor::centre ? -placed.width / 2
                                                                     : -placed.width;
    for (const auto& [rule, height] : rules) {
        if ((placed.run.rules & rule) != 0) {
            const double y = height * placed.run.height;
            scope.out.line(plane({begin, y, 0}).plan(), plane({begin + placed.width, y, 0}).plan());
        }
    }
}

/// Draws a run where its text places it; `plane` is the text's, in drawing units.
void draw_run(const EntityScope& scope, const PlacedRun& placed, const Transform3& plane, uint16_t font) {
    const TextRun& run = placed.run;
    const Transform3 at = plane * Transform3::translation({placed.at.x, placed.at.y, 0});
    if (run.ink) {
        scope.out.set_ink(*run.ink);
    }
    TextItem item;
    item.text = run.text;
    item.font = run.face && !run.face->family.empty() ? scope.styles.font_number(*run.face) : font;
    item.anchor = placed.anchor;
    item.from_right = placed.from_right;
    item.fit_width = placed.fitted ? placed.width / (run.height * run.width_factor) : 0;
    item.frame = (at * text_frame(run.height, run.width_factor, run.slant, 0)).plan();
    scope.out.text(std::move(item));
    draw_rules(scope, placed, at);
}

void draw_line_text(const EntityScope& scope, const dxf::Text& text, const std::wstring& value) {
    const int justification = text.horizontal;
    int vertical = justification == middle ? 2 : text.vertical;
    double rotation = text.rotation;
    double width_factor = text.width_factor;
    const std::vector<TextRun> runs = line_runs(value);
    const uint16_t font = scope.styles.named(text.style).font;
    TextItem::Anchor side = TextItem::Anchor::left;
    double fit_width = 0;
    Vec3 anchor = text.alignment;
    if (justification == aligned || justification == fit) {
        const Vec3 along = text.alignment - text.position;
        anchor = text.position;
        vertical = 0;
        rotation = std::atan2(along.y, along.x);
        width_factor = 1;
        fit_width = along.length() / text.height;
    } else if (justification == left && vertical == 0) {
        anchor = text.position;
    } else {
        side = justification == right  ? TextItem::Anchor::right
               : justification == left ? TextItem::Anchor::left
                                       : TextItem::Anchor::centre;
    }
    const auto mirrored = [&text](int flag) { return (text.generation & flag) != 0 ? -1.0 : 1.0; };
    Transform3 frame = text_frame(text.height, width_factor, text.oblique, rotation);
    frame = frame * Transform3::scaling({mirrored(dxf::Text::backward_flag), mirrored(dxf::Text::upside_down_flag), 1});
    frame = frame * Transform3::translation({0, base_line_above(vertical), 0});
    frame.origin = frame.origin + anchor;
    const Transform3 plane = scope.object_space() * frame;
    std::vector<PlacedRun> placed = place_line(runs, side);
    if (fit_width > 0 && !placed.empty()) {
        const double stretch = fit_width / std::max(placed.back().at.x + placed.back().width, 1e-9);
        for (PlacedRun& run : placed) {
            run.at.x *= stretch;
            run.width *= stretch;
            run.fitted = true;
        }
    }
    for (const PlacedRun& run : placed) {
        draw_run(scope, run, plane, font);
    }
}

std::wstring paragraph_value(const EntityScope& scope) {
    std::string raw;  // a character or a code may be cut in two between groups
    for (const dxf::Group& group : scope.fields.groups()) {
        if (group.code == 3 || group.code == 1) {
            raw += group.value;
        }
    }
    std::wstring value = scope.fields.decode(raw);
    if (value.size() > longest_paragraphs) {
        value.resize(longest_paragraphs);
        scope.out.budget().leave_out();
    }
    return value;
}

/// The paragraphs' plane: its x axis by group 11 in world coordinates or by the rotation, whichever comes last.
Transform3 paragraph_plane(const dxf::RecordFields& fields) {
    const Transform3 extrusion = object_coordinates(fields);
    int last = 50;
    for (const dxf::Group& group : fields.groups()) {
        if (group.code == 11 || group.code == 50) {
            last = group.code;
        }
    }
    const Vec3 along = fields.point(11);
    Transform3 plane = extrusion * Transform3::rotation(fields.angle(50));
    if (last == 11 && along.length() > 0) {
        plane.x = along * (1 / along.length());
        plane.y = cross(extrusion.z, plane.x);
        plane.z = extrusion.z;
    }
    plane.origin = fields.point(10);
    return plane;
}

}  // namespace

void draw_text(const EntityScope& scope) {
    const dxf::Text text = read_text(scope, dxf::TextKind::text);
    draw_line_text(scope, text, text.value);
}

void draw_attribute(const EntityScope& scope) {
    const dxf::Text text = read_text(scope, dxf::TextKind::attribute);
    if ((text.flags & dxf::Text::invisible_flag) == 0) {
        draw_line_text(scope, text, text.value);
    }
}

/// In a block a definition stands for what references will show; outside it shows its tag.
void draw_attribute_definition(const EntityScope& scope) {
    const dxf::Text text = read_text(scope, dxf::TextKind::definition);
    const int constant_or_hidden = text.flags & (dxf::Text::constant_flag | dxf::Text::invisible_flag);
    if (!scope.in_block) {
        draw_line_text(scope, text, text.tag);
    } else if (constant_or_hidden == dxf::Text::constant_flag) {
        draw_line_text(scope, text, text.value);
    }
}

void draw_paragraphs(const EntityScope& scope) {
    const dxf::RecordFields& fields = scope.fields;
    const TextStyle& style = scope.styles.named(fields.text(7));
    TextRun first;
    first.height = fields.real(40, 1);
    first.width_factor = style.width_factor;
    first.slant = style.slant;
    if (!(first.height > 0)) {
        return;
    }
    const auto attachment = static_cast<int>(std::clamp<int64_t>(fields.integer(71, 1), 1, 9)) - 1;
    constexpr TextItem::Anchor columns[] = {TextItem::Anchor::left, TextItem::Anchor::centre, TextItem::Anchor::right};
    const ParagraphSetting setting{fields.real(41), columns[attachment % 3], attachment / 3, fields.real(44, 1)};
    const Transform3 plane = scope.space * paragraph_plane(fields);
    const Ink own = scope.out.ink();
    const std::vector<PlacedRun> runs = place_paragraphs(paragraph_lines(paragraph_value(scope), first), setting);
    if (fields.has(90)) {
        draw_text_background(scope, plane, area_of(runs, setting), first.height);
    }
    for (const PlacedRun& run : runs) {
        scope.out.set_ink(own);
        draw_run(scope, run, plane, style.font);
    }
}

}  // namespace host
