// Adds entities' primitives to a picture.
#pragma once

#include <vector>

#include "platform/host/view/picture.h"

namespace host {

/// Coordinates are the picture's. What is not finite is left out.
class PictureBuilder {
  public:
    /// Makes room for this many primitives, of which some are instances.
    void reserve(size_t primitives, size_t instances);
    /// The primitives that follow belong to this entity.
    void begin_entity(dxf::RecordId entity, Ink ink, bool on_layer_zero, uint16_t pattern = LinePattern::continuous);
    /// Replaces the entity's colour for what follows.
    void set_ink(Ink ink) { ink_ = ink; }

    void strip(const std::vector<Vec2>& points);
    void line(Vec2 from, Vec2 to) { strip({from, to}); }
    /// A line that ends nowhere near: extents do not count it.
    void endless_line(Vec2 from, Vec2 to);
    void arc(const Arc& arc);
    /// `bridged`: see Primitive.
    void fill(const std::vector<Vec2>& polygon, bool bridged = false);
    void dot(Vec2 point);
    void text(TextItem item);
    void instance(const Instance& instance, const Picture& placed);

    size_t size() const { return picture_.primitives.size(); }
    /// The finished picture; the builder is empty afterwards.
    Picture take();

  private:
    Primitive& add(Primitive::Kind kind, size_t first, size_t count, const Box2& box);
    void add_points(Primitive::Kind kind, const std::vector<Vec2>& points);

    Picture picture_;
    dxf::RecordId entity_ = dxf::no_record;
    Ink ink_;
    bool on_layer_zero_ = false;
    uint16_t pattern_ = LinePattern::continuous;
};

}  // namespace host
