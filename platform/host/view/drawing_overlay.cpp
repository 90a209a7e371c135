#include "platform/host/view/drawing_overlay.h"

#include <algorithm>

#include "platform/host/view/gdi_handles.h"

namespace host {

namespace {

/// The two ends in an order that does not depend on the direction.
bool in_order(Vec2 a, Vec2 b) {
    return a.x != b.x ? a.x < b.x : a.y <= b.y;
}

bool same(const VectorOverlay::Vector& a, const VectorOverlay::Vector& b) {
    return a.from == b.from && a.to == b.to && a.colour == b.colour && a.highlight == b.highlight;
}

COLORREF colour_of(int colour, const PaintColours& colours) {
    const uint32_t rgb = colour == 0 ? colours.background : colours.of_line(indexed_ink(colour));
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
}

void draw_lines(HDC context, const std::vector<POINT>& points, COLORREF colour, bool dashed) {
    const GdiObject pen(CreatePen(dashed ? PS_DASH : PS_SOLID, 1, colour));  // outlives its being selected
    const SavedContext saved(context);
    SelectObject(context, pen.get());
    SetBkMode(context, TRANSPARENT);
    Polyline(context, points.data(), static_cast<int>(points.size()));
}

/// A pixel within the range that GDI draws in.
POINT gdi_point(Vec2 pixel) {
    constexpr double limit = 1 << 26;  // GDI's own is 2^27
    return {static_cast<LONG>(std::floor(std::clamp(pixel.x, -limit, limit))),
            static_cast<LONG>(std::floor(std::clamp(pixel.y, -limit, limit)))};
}

/// A line of pixels that complements what is there. Its last pixel is left out, so that connected lines do not undo
/// each other where they meet. Both directions set the same pixels when the ends are ordered.
void draw_complementing(HDC context, const std::vector<POINT>& points, bool dashed) {
    const SavedContext saved(context);
    SetROP2(context, R2_NOT);
    draw_lines(context, points, RGB(0, 0, 0), dashed);
}

void draw_one(const VectorOverlay::Vector& vector, HDC context, const ViewTransform& view,
              const PaintColours& colours) {
    const std::vector<POINT> ends{gdi_point(view.to_pixel(vector.from)), gdi_point(view.to_pixel(vector.to))};
    if (vector.colour == VectorOverlay::complement) {
        draw_complementing(context, ends, vector.highlight);
        return;
    }
    draw_lines(context, ends, colour_of(vector.colour, colours), vector.highlight);
}

}  // namespace

void VectorOverlay::add(const Vector& vector, HDC context, const ViewTransform& view, const PaintColours& colours) {
    Vector added = vector;
    auto there = vectors_.end();
    if (vector.colour == complement) {
        if (!in_order(added.from, added.to)) {
            std::swap(added.from, added.to);
        }
        there = std::find_if(vectors_.begin(), vectors_.end(),
                             [&added](const Vector& other) { return same(added, other); });
    }
    if (there != vectors_.end()) {
        vectors_.erase(there);
    } else {
        vectors_.push_back(added);
    }
    draw_one(added, context, view, colours);
}

void VectorOverlay::draw(HDC context, const ViewTransform& view, const PaintColours& colours) const {
    for (const Vector& vector : vectors_) {
        draw_one(vector, context, view, colours);
    }
}

PointerShape::PointerShape(POINT at, const PointerGuide& guide, const ViewTransform& view)
    : at_(at),
      anchor_(gdi_point(view.to_pixel({guide.anchor.x, guide.anchor.y}))),
      guide_(guide),
      width_(view.width()),
      height_(view.height()) {}

void PointerShape::draw(HDC context) const {
    const bool box = guide_.kind == PointerGuide::Kind::idle || guide_.kind == PointerGuide::Kind::pick_box;
    if (box) {
        draw_rectangle(context, {at_.x - pick_box, at_.y - pick_box}, {at_.x + pick_box, at_.y + pick_box}, false);
    }
    if (guide_.kind != PointerGuide::Kind::pick_box) {
        draw_cross(context);
    }
    if (guide_.kind == PointerGuide::Kind::line) {
        draw_complementing(context, {anchor_, at_}, false);
    } else if (has_rectangle()) {
        draw_rectangle(context, anchor_, at_, is_dashed());
    }
}

bool PointerShape::has_rectangle() const {
    return guide_.kind == PointerGuide::Kind::rectangle || guide_.selects();
}

/// The rectangle is dashed where touching it is enough to be selected.
bool PointerShape::is_dashed() const {
    return guide_.kind == PointerGuide::Kind::crossing || (guide_.kind == PointerGuide::Kind::box && at_.x < anchor_.x);
}

/// The cross has a gap in the middle, where its lines would undo each other and hide what is aimed at. Arms that would
/// lie on a rectangle's sides, and undo them, are left out.
void PointerShape::draw_cross(HDC context) const {
    const int gap = guide_.kind == PointerGuide::Kind::idle ? pick_box : 1;
    const bool all = !has_rectangle();
    const int reach = guide_.kind == PointerGuide::Kind::follow ? short_arm : std::max(width_, height_);
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
