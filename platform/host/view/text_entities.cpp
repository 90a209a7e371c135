// TEXT, ATTRIB, ATTDEF and MTEXT.
#include "platform/host/dxf/entities.h"
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/text_codes.h"
#include "platform/host/view/text_metrics.h"

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
    frame.y = {height * std::tan(at_most(slant, steepest)), height, 0};
    return Transform3::rotation(rotation) * frame;
}

/// How far above the anchor the base line is, of the text height.
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

void draw_line_text(const EntityScope& scope, const dxf::Text& text, const std::wstring& value) {
    const int justification = text.horizontal;
    int vertical = justification == middle ? 2 : text.vertical;
    double rotation = text.rotation;
    double width_factor = text.width_factor;
    TextItem item;
    item.text = plain_text(value);
    item.font = scope.styles.named(text.style).font;
    Vec3 anchor = text.alignment;
    if (justification == aligned || justification == fit) {
        const Vec3 along = text.alignment - text.position;
        anchor = text.position;
        vertical = 0;
        rotation = std::atan2(along.y, along.x);
        width_factor = 1;
        item.fit_width = along.length() / text.height;
    } else if (justification == left && vertical == 0) {
        anchor = text.position;
    } else {
        item.anchor = justification == right  ? TextItem::Anchor::right
                      : justification == left ? TextItem::Anchor::left
                                              : TextItem::Anchor::centre;
    }
    const auto mirrored = [&text](int flag) { return (text.generation & flag) != 0 ? -1.0 : 1.0; };
    Transform3 frame = text_frame(text.height, width_factor, text.oblique, rotation);
    frame = frame * Transform3::scaling({mirrored(dxf::Text::backward_flag), mirrored(dxf::Text::upside_down_flag), 1});
    frame = frame * Transform3::translation({0, base_line_above(vertical), 0});
    frame.origin = frame.origin + anchor;
    item.frame = (scope.object_space() * frame).plan();
    scope.out.text(std::move(item));
}

/// Breaks a line at blanks so that no part is wider than `width` (in heights of the capitals), where it can be.
void wrap(const std::wstring& line, double width, std::vector<std::wstring>& lines) {
    std::wstring part;
    double part_width = 0;
    size_t at = 0;
    while (at < line.size()) {
        const size_t word_end = std::min(line.find(L' ', line.find_first_not_of(L' ', at)), line.size());
        const std::wstring word = line.substr(at, word_end - at);
        const double word_width = estimated_width(word);
        if (!part.empty() && part_width + word_width > width) {
            lines.push_back(part);
            part = word.substr(std::min(word.find_first_not_of(L' '), word.size()));
            part_width = estimated_width(part);
        } else {
            part += word;
            part_width += word_width;
        }
        at = word_end;
    }
    lines.push_back(part);
}

std::vector<std::wstring> wrapped_lines(const ParagraphText& text, double width) {
    std::vector<std::wstring> lines;
    for (const std::wstring& line : text.lines) {
        if (width > 0) {
            wrap(line, width, lines);
        } else {
            lines.push_back(line);
        }
    }
    return lines;
}

std::wstring paragraph_value(const EntityScope& scope) {
    std::wstring value;
    for (const dxf::Group& group : scope.fields.groups()) {
        if (group.code == 3 || group.code == 1) {
            value += scope.fields.decode(group.value);
        }
    }
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

FontFace paragraph_face(const ParagraphText& text) {
    return {text.font_family, text.bold, text.italic};
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
    const ParagraphText text = parse_paragraphs(paragraph_value(scope));
    const double height = text.height.value_or(fields.real(40, 1) * text.height_factor.value_or(1));
    const double width_factor = text.width_factor.value_or(style.width_factor);
    if (!(height > 0)) {
        return;
    }
    const std::vector<std::wstring> lines = wrapped_lines(text, fields.real(41) / (height * width_factor));
    if (text.colour_index && *text.colour_index > 0 && *text.colour_index < 256) {
        scope.out.set_ink(indexed_ink(*text.colour_index));
    }
    const auto attachment = static_cast<int>(std::clamp<int64_t>(fields.integer(71, 1), 1, 9)) - 1;
    const double spacing = fields.real(44, 1) * 5 / 3;
    const double depth = spacing * static_cast<double>(lines.size() - 1);  // from the first base line to the last
    const double above[] = {-1, (depth - 1) / 2, depth};
    const Transform3 plane = scope.space * paragraph_plane(fields) * text_frame(height, width_factor, style.slant, 0);
    constexpr TextItem::Anchor anchors[] = {TextItem::Anchor::left, TextItem::Anchor::centre, TextItem::Anchor::right};
    for (size_t i = 0; i < lines.size(); ++i) {
        TextItem item;
        item.text = lines[i];
        item.anchor = anchors[attachment % 3];
        item.font = text.font_family.empty() ? style.font : scope.styles.font_number(paragraph_face(text));
        const Vec3 down{0, above[attachment / 3] - spacing * static_cast<double>(i), 0};
        item.frame = (plane * Transform3::translation(down)).plan();
        scope.out.text(std::move(item));
    }
}

}  // namespace host
