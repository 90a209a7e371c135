// The fields of entities and table entries, with the group code of each field named once for reading and writing.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <string>

#include "platform/host/dxf/field_writer.h"

namespace dxf {

// For each struct, exchange(struct, fields) names its fields to a FieldWriter or a FieldReader. Angles are in radians.

/// What the entries of all symbol tables have.
struct TableEntry {
    std::wstring name;
    int flags = 0;

    template <class Self, class Fields>
    static void exchange(Self& entry, Fields& fields) {
        fields.text(2, entry.name).integer(70, entry.flags);
    }
};

struct Layer : TableEntry {
    static constexpr int frozen_flag = 1;
    static constexpr int locked_flag = 4;

    int colour = 7;  ///< an index; negative of a layer that is off
    std::wstring line_type = L"CONTINUOUS";

    bool on() const { return colour >= 0; }
    bool frozen() const { return (flags & frozen_flag) != 0; }
    bool locked() const { return (flags & locked_flag) != 0; }
    /// The colour's index, 1 to 255, whether the layer is on or off.
    int colour_index() const { return std::abs(colour) % 257; }

    template <class Self, class Fields>
    static void exchange(Self& layer, Fields& fields) {
        TableEntry::exchange(layer, fields);
        fields.integer(62, layer.colour, 7, Field::Presence::always);
        fields.text(6, layer.line_type, L"CONTINUOUS", Field::Presence::always);
    }
};

/// STYLE.
struct TextStyle : TableEntry {
    double height = 0;  ///< 0: each text has its own
    double width_factor = 1;
    double oblique = 0;
    int generation = 0;
    double last_height = 0.2;
    std::wstring font_file;
    std::wstring big_font_file;

    template <class Self, class Fields>
    static void exchange(Self& style, Fields& fields) {
        TableEntry::exchange(style, fields);
        fields.real(40, style.height).real(41, style.width_factor, 1, Field::Presence::always);
        fields.angle(50, style.oblique).integer(71, style.generation);
        fields.real(42, style.last_height, 0.2, Field::Presence::always);
        fields.text(3, style.font_file).text(4, style.big_font_file);
    }
};

/// BLOCK.
struct BlockHead : TableEntry {
    Vec3 base;

    template <class Self, class Fields>
    static void exchange(Self& head, Fields& fields) {
        TableEntry::exchange(head, fields);
        fields.point(10, head.base);
    }
};

/// Where and how often an INSERT places its block, in the object coordinates of its extrusion.
struct Insert {
    Vec3 position;
    Vec3 scale{1, 1, 1};
    double rotation = 0;
    int64_t columns = 1;
    int64_t rows = 1;
    double column_spacing = 0;
    double row_spacing = 0;
    Vec3 extrusion{0, 0, 1};

    template <class Self, class Fields>
    static void exchange(Self& insert, Fields& fields) {
        const Vec3 upright{0, 0, 1};
        fields.point(10, insert.position);
        fields.real(41, insert.scale.x, 1).real(42, insert.scale.y, 1).real(43, insert.scale.z, 1);
        fields.angle(50, insert.rotation, 0).integer(70, insert.columns, 1).integer(71, insert.rows, 1);
        fields.real(44, insert.column_spacing, 0).real(45, insert.row_spacing, 0);
        fields.point_if(!(insert.extrusion == upright), 210, insert.extrusion, upright);
    }
};

enum class TextKind : unsigned char { text, attribute, definition };

/// TEXT, ATTRIB or ATTDEF.
struct Text {
    // Of `flags`.
    static constexpr int invisible_flag = 1;
    static constexpr int constant_flag = 2;
    static constexpr int verify_flag = 4;
    static constexpr int preset_flag = 8;
    // Of `generation`.
    static constexpr int backward_flag = 2;
    static constexpr int upside_down_flag = 4;

    TextKind kind = TextKind::text;
    Vec3 position;
    Vec3 alignment;  ///< what a justified text keeps to
    double height = 0.2;
    double width_factor = 1;
    double rotation = 0;
    double oblique = 0;
    std::wstring value;
    std::wstring style = L"Standard";
    int generation = 0;
    int horizontal = 0;
    int vertical = 0;
    // Attributes and their definitions have a tag; only a definition has a prompt.
    std::wstring tag;
    std::wstring prompt;
    int flags = 0;

    bool justified() const { return horizontal != 0 || vertical != 0; }

    template <class Self, class Fields>
    static void exchange(Self& text, Fields& fields) {
        fields.subclass(L"AcDbText").point(10, text.position).real(40, text.height, 1, Field::Presence::always);
        fields.text(1, text.value).angle(50, text.rotation, 0).real(41, text.width_factor, 1);
        fields.angle(51, text.oblique, 0).text(7, text.style, L"Standard");
        fields.integer(71, text.generation, 0).integer(72, text.horizontal, 0);
        fields.point_if(text.justified(), 11, text.alignment, text.position);
        if (text.kind == TextKind::text) {
            fields.subclass(L"AcDbText").integer(73, text.vertical, 0);
            return;
        }
        const bool definition = text.kind == TextKind::definition;
        fields.subclass(definition ? L"AcDbAttributeDefinition" : L"AcDbAttribute");
        if (definition) {
            fields.text(3, text.prompt);
        }
        fields.text(2, text.tag).integer(70, text.flags).integer(74, text.vertical, 0);
    }
};

template <class Struct>
void write(const Struct& said, FieldWriter& fields) {
    Struct::exchange(said, fields);
}

/// Fills one of these structs from a record. The kind of a Text must be set before.
template <class Struct>
void read(const RecordFields& record, Struct& said) {
    FieldReader fields(record);
    Struct::exchange(said, fields);
}

template <class Struct>
Struct read(const RecordFields& record) {
    Struct said;
    read(record, said);
    return said;
}

}  // namespace dxf
