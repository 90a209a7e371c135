// Which entities are at a point, in a window, or touched by one.
#pragma once

#include <vector>

#include "platform/host/view/display_list.h"

namespace host {

/// Looks at what a display list shows: entities on layers that are off or frozen are never found. Boxes are in world
/// coordinates; entities come in drawing order, each once.
class HitTest {
  public:
    explicit HitTest(const DisplayList& list) : list_(list) {}

    /// The entity drawn last of those that touch the pick box; no_record for none.
    dxf::RecordId pick(const Box2& pick_box) const;
    /// Entities that touch the box.
    std::vector<dxf::RecordId> crossing(const Box2& box) const;
    /// Entities that are inside the box with all that is seen of them.
    std::vector<dxf::RecordId> window(const Box2& box) const;

  private:
    struct Placing {
        Affine2 to_world;
        Surroundings surroundings;
    };
    std::vector<uint32_t> candidates(const Box2& box) const;
    bool touches(const Picture& picture, const Primitive& primitive, const Placing& placing, const Box2& box) const;
    bool any_touches(const Instance& instance, const Placing& placing, const Box2& box) const;
    bool inside(const Picture& picture, const Primitive& primitive, const Placing& placing, const Box2& box) const;
    bool all_inside(const Instance& instance, const Placing& placing, const Box2& box) const;

    const DisplayList& list_;
};

}  // namespace host
