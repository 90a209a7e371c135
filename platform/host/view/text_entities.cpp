// TEXT, ATTRIB, ATTDEF and MTEXT.
#include "platform/host/view/entity_scope.h"
#include "platform/host/view/text_codes.h"
#include "platform/host/view/text_metrics.h"

namespace host {

namespace {

constexpr int64_t invisible_attribute = 1;
constexpr int64_t constant_attribute = 2;
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
double base_line_above(int64_t vertical) {
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

struct LineTextGroups {
    int vertical;  ///< where the vertical alignment stands
    int value;     ///< where the text stands
};

void draw_line_text(const EntityScope& scope, const LineTextGroups& where) {
    const RecordFields& fields = scope.fields;
    const TextStyle& style = scope.styles.named(fields.text(7));
    const int64_t justification = fields.integer(72);
    int64_t vertical = justification == middle ? 2 : fields.integer(where.vertical);
    const Vec3 first = fields.point(10);
    const Vec3 second = fields.point(11, first);
    const double height = fields.real(40, 1);
    double rotation = fields.angle(50);
    double width_factor = fields.real(41, 1);
    TextItem item;
    item.text = plain_text(fields.text(where.value));
    item.font = style.font;
    Vec3 anchor = second;
    if (justification == aligned || justification == fit) {
        const Vec3 along = second - first;
        anchor = first;
        vertical = 0;
        rotation = std::atan2(along.y, along.x);
        width_factor = 1;
        item.fit_width = along.length() / height;
    } else if (justification == left && vertical == 0) {
        anchor = first;
    } else {
        item.anchor = justification == right  ? TextItem::Anchor::right
                      : justification == left ? TextItem::Anchor::left
                                              : TextItem::Anchor::centre;
    }
    const int64_t generation = fields.integer(71);
    Transform3 frame = text_frame(height, width_factor, fields.angle(51), rotation);
    frame = frame * Transform3::scaling({(generation & 2) != 0 ? -1.0 : 1.0, (generation & 4) != 0 ? -1.0 : 1.0, 1});
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
Transform3 paragraph_plane(const RecordFields& fields) {
    const Transform3 extrusion = fields.extrusion();
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
    draw_line_text(scope, {73, 1});
}

void draw_attribute(const EntityScope& scope) {
    if ((scope.fields.integer(70) & invisible_attribute) == 0) {
        draw_line_text(scope, {74, 1});
    }
}

/// In a block a definition stands for what references will show; outside it shows its tag.
void draw_attribute_definition(const EntityScope& scope) {
    const int64_t flags = scope.fields.integer(70);
    if (!scope.in_block) {
        draw_line_text(scope, {74, 2});
    } else if ((flags & constant_attribute) != 0 && (flags & invisible_attribute) == 0) {
        draw_line_text(scope, {74, 1});
    }
}

void draw_paragraphs(const EntityScope& scope) {
    const RecordFields& fields = scope.fields;
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
