// Areas of a drawing that are worth a look, and the place beside it for a block.
#pragma once

#include "platform/host/view/display_list.h"
#include "platform/host/view/list_painter.h"

namespace host {

/// The proportions of pictures of whole drawings, and their size in pixels.
constexpr int picture_width = 1600;
constexpr int picture_height = 1200;

/// Where a block goes beside a drawing.
struct BesidePlace {
    Vec2 upper_left;
    double scale = 1;
};

/// The place of a block of `size` (at scale 1, with letters 1 high) to the right of a drawing or under it, so that one
/// picture shows both: the drawing in at least half of the area that it has alone, the letters as large as that leaves
/// room for, up to what is read with ease.
BesidePlace place_beside(const Box2& drawing, Vec2 size);

/// The box around a block at scale 1, its base point at 0, 0; empty when nothing of it is seen.
Box2 block_area(const dxf::Drawing& drawing, dxf::BlockId block);

/// The box around what is drawn of some entities; empty when nothing is.
Box2 area_of(const DisplayList& list, const EntitySet& entities);

/// The box around the entity that was drawn last, and the height of its smallest letters (0 without letters).
struct LastArea {
    Box2 box;
    double letters = 0;
};
LastArea last_area(const DisplayList& list);

/// The box around what stands where 95 in 100 of the drawing's things are; nothing when a picture of the whole shows
/// them large enough.
std::optional<Box2> crowded_area(const DisplayList& list);

}  // namespace host
