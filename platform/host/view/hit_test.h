// Which entities are at a point, in a window, or touched by one.
#pragma once

#include <vector>

#include "platform/host/view/display_list.h"

namespace host {

/// Looks at what a display list shows: entities on layers that are off or frozen are never found. Boxes are in world
/// coordinates; entities come in drawing order, each once. A box takes bounded effort: beyond it, block references are
/// taken by the boxes around them.
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
    std::vector<uint32_t> candidates(const Box2& box) const;

    const DisplayList& list_;
};

}  // namespace host
