// Everything that drawing one entity needs: its groups, its space, the styles, and the picture that it goes into.
#pragma once

#include "platform/host/view/drawing_settings.h"
#include "platform/host/view/picture_builder.h"
#include "platform/host/view/style_tables.h"
#include "platform/host/view/transform3.h"

namespace host {

/// Places blocks for entities that show one as a part of themselves.
class BlockPlacer {
  public:
    /// False when there is no such block. `where`: from the block to the coordinates that the entity stands in.
    virtual bool place(const std::wstring& block, const Transform3& where) = 0;

  protected:
    ~BlockPlacer() = default;
};

struct EntityScope {
    const dxf::Drawing& drawing;
    const dxf::RecordView& record;
    const dxf::RecordFields& fields;
    /// From world coordinates (of the space or block that the entity stands in) to the picture.
    const Transform3& space;
    TextStyles& styles;
    DrawingSettings& settings;
    const LayerStates& layers;
    LineTypes& line_types;
    BlockPlacer& blocks;
    PictureBuilder& out;
    bool in_block = false;

    /// A text of another record that this entity depends on, which costs time; empty where there is no record.
    std::wstring text_of(dxf::RecordId id, int code) const {
        return may_read(id) ? drawing.view(id).text(code) : std::wstring();
    }
    bool may_read(dxf::RecordId id) const {
        return id != dxf::no_record && out.budget().work(drawing.record(id).length);
    }
    Transform3 object_space() const { return fields.has(210) ? space * object_coordinates(fields) : space; }
    Vec2 world(const Vec3& point) const { return space(point).plan(); }
};

// Entities by their geometry; each adds the entity to `scope.out`.
void draw_line(const EntityScope& scope);
void draw_circle(const EntityScope& scope);
void draw_arc(const EntityScope& scope);
void draw_ellipse(const EntityScope& scope);
void draw_spline(const EntityScope& scope);
void draw_point(const EntityScope& scope);
void draw_ray(const EntityScope& scope);
void draw_construction_line(const EntityScope& scope);
void draw_leader(const EntityScope& scope);
void draw_multileader(const EntityScope& scope);
void draw_tolerance(const EntityScope& scope);
void draw_multiline(const EntityScope& scope);

void draw_image(const EntityScope& scope);
void draw_underlay(const EntityScope& scope);
void draw_wipeout(const EntityScope& scope);

void draw_light_polyline(const EntityScope& scope);
void draw_polyline(const EntityScope& scope);
void draw_subdivision_mesh(const EntityScope& scope);

void draw_solid(const EntityScope& scope);
void draw_face(const EntityScope& scope);
void draw_hatch(const EntityScope& scope);

void draw_text(const EntityScope& scope);
void draw_attribute(const EntityScope& scope);
void draw_attribute_definition(const EntityScope& scope);
void draw_paragraphs(const EntityScope& scope);
/// Dimensions and tables as their own groups say, for those without a block.
void draw_dimension(const EntityScope& scope);
void draw_table(const EntityScope& scope);
/// What an MTEXT has behind its letters, which take `area` of `plane`, in drawing units; `height` is that of capitals.
void draw_text_background(const EntityScope& scope, const Transform3& plane, const Box2& area, double height);

/// False where the shape's file is not beside the drawing, or has no such shape.
bool draw_shape(const EntityScope& scope);

/// The picture that an entity of a kind of its application's own brings along; false when it has none.
bool draw_proxy_graphics(const EntityScope& scope);

}  // namespace host
