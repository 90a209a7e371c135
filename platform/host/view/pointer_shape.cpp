#include "platform/host/view/pointer_shape.h"

#include <algorithm>

#include "platform/host/view/vector_overlay.h"

namespace host {

PointerShape::PointerShape(POINT at, const PointerGuide& guide, const ViewTransform& view)
    : at_(at),
      anchor_(gdi_point(view.to_pixel(guide.anchor))),
      kind_(guide.kind),
      width_(view.width()),
      height_(view.height()) {}

void PointerShape::draw(HDC context) const {
    const bool box = kind_ == PointerGuide::Kind::idle || kind_ == PointerGuide::Kind::pick_box;
    if (box) {
        draw_rectangle(context, {at_.x - pick_box, at_.y - pick_box}, {at_.x + pick_box, at_.y + pick_box}, false);
    }
    if (kind_ != PointerGuide::Kind::pick_box) {
        draw_cross(context);
    }
    if (kind_ == PointerGuide::Kind::line) {
        draw_complementing(context, {anchor_, at_}, false);
    } else if (has_rectangle()) {
        draw_rectangle(context, anchor_, at_, is_dashed());
    }
}

bool PointerShape::has_rectangle() const {
    return kind_ == PointerGuide::Kind::rectangle || selects(kind_);
}

/// Where touching is enough to be selected.
bool PointerShape::is_dashed() const {
    return kind_ == PointerGuide::Kind::crossing || (kind_ == PointerGuide::Kind::box && at_.x < anchor_.x);
}

/// With a gap in the middle, where the lines would undo each other and hide what is aimed at. Arms that would lie on a
/// rectangle's sides, and undo them, are left out.
void PointerShape::draw_cross(HDC context) const {
    const int gap = kind_ == PointerGuide::Kind::idle ? pick_box : 1;
    const bool all = !has_rectangle();
    const int reach = kind_ == PointerGuide::Kind::follow ? short_arm : std::max(width_, height_);
    if (all || anchor_.x >= at_.x) {
        draw_complementing(context, {{at_.x - reach, at_.y}, {at_.x - gap + 1, at_.y}}, false);
    }
    if (all || anchor_.x <= at_.x) {
        draw_complementing(context, {{at_.x + gap, at_.y}, {at_.x + reach, at_.y}}, false);
    }
    if (all || anchor_.y >= at_.y) {
        draw_complementing(context, {{at_.x, at_.y - reach}, {at_.x, at_.y - gap + 1}}, false);
    }
    if (all || anchor_.y <= at_.y) {
        draw_complementing(context, {{at_.x, at_.y + gap}, {at_.x, at_.y + reach}}, false);
    }
}

void PointerShape::draw_rectangle(HDC context, POINT from, POINT to, bool dashed) const {
    if (from.x != to.x && from.y != to.y) {
        draw_complementing(context, {from, {to.x, from.y}, to, {from.x, to.y}, from}, dashed);
    }
}

}  // namespace host
