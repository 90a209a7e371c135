// PictureBuilder, which adds entities' primitives to a picture.
#pragma once

#include <vector>

#include "platform/host/view/picture.h"
#include "platform/host/view/picture_budget.h"

namespace host {

/// Coordinates are the picture's. What is not finite is left out, and so is what the budget has no room for.
class PictureBuilder {
  public:
    /// The budget outlives the builder.
    explicit PictureBuilder(PictureBudget& budget) : budget_(budget) {}
    /// Goes on with a picture that was finished before.
    PictureBuilder(PictureBudget& budget, Picture picture) : budget_(budget), picture_(std::move(picture)) {}

    PictureBudget& budget() { return budget_; }
    /// Makes room for this many primitives, of which some are instances.
    void reserve(size_t primitives, size_t instances);
    /// The primitives that follow belong to this entity.
    void begin_entity(dxf::RecordId entity, Ink ink, bool on_layer_zero, uint16_t pattern = LinePattern::continuous,
                      uint8_t weight = LineWeight::thin);
    Ink ink() const { return ink_; }
    /// Replaces the entity's colour for what follows.
    void set_ink(Ink ink) { ink_ = ink; }
    uint16_t pattern() const { return pattern_; }
    void set_pattern(uint16_t pattern) { pattern_ = pattern; }
    uint8_t weight() const { return weight_; }
    void set_weight(uint8_t weight) { weight_ = weight; }

    void strip(const std::vector<Vec2>& points);
    void line(Vec2 from, Vec2 to);
    /// A line that ends nowhere near: extents do not count it.
    void endless_line(Vec2 from, Vec2 to);
    void arc(const Arc& arc);
    /// `bridged`: see Primitive.
    void fill(const std::vector<Vec2>& polygon, bool bridged = false);
    void dot(Vec2 point);
    void text(TextItem item);
    void instance(const Instance& instance, const Picture& placed);
    /// A picture placed several times: instance.repeats is set here.
    void instances(Instance instance, const Picture& placed, const Repeats& repeats);

    size_t size() const { return picture_.primitives.size(); }
    /// The finished picture; the builder is empty afterwards.
    Picture take();

  private:
    /// Null when there is no room for it and the `bytes` of its shape.
    Primitive* add(Primitive::Kind kind, size_t first, size_t count, const Box2& box, size_t bytes);
    Primitive* add_points(Primitive::Kind kind, const Vec2* points, size_t count);
    Primitive* add_instance(const Instance& instance, const Picture& placed, const Box2& box);

    PictureBudget& budget_;
    Picture picture_;
    dxf::RecordId entity_ = dxf::no_record;
    Ink ink_;
    bool on_layer_zero_ = false;
    uint16_t pattern_ = LinePattern::continuous;
    uint8_t weight_ = LineWeight::thin;
};

}  // namespace host
