#include "platform/host/view/vector_overlay.h"

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
    const uint32_t rgb = colour == 0 ? colours.background : colours.of(indexed_ink(colour));
    return RGB(rgb >> 16 & 0xFF, rgb >> 8 & 0xFF, rgb & 0xFF);
}

void draw_lines(HDC context, const std::vector<POINT>& points, COLORREF colour, bool dashed) {
    const GdiObject pen(CreatePen(dashed ? PS_DASH : PS_SOLID, 1, colour));  // outlives its being selected
    const SavedContext saved(context);
    SelectObject(context, pen.get());
    SetBkMode(context, TRANSPARENT);
    Polyline(context, points.data(), static_cast<int>(points.size()));
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

POINT gdi_point(Vec2 pixel) {
    constexpr double limit = 1 << 26;  // GDI's own is 2^27
    return {static_cast<LONG>(std::floor(std::clamp(pixel.x, -limit, limit))),
            static_cast<LONG>(std::floor(std::clamp(pixel.y, -limit, limit)))};
}

void draw_complementing(HDC context, const std::vector<POINT>& points, bool dashed) {
    const SavedContext saved(context);
    SetROP2(context, R2_NOT);
    draw_lines(context, points, RGB(0, 0, 0), dashed);
}

void VectorOverlay::add(const Vector& vector, HDC context, const ViewTransform& view, const PaintColours& colours) {
    Vector added = vector;
    if (vector.colour == complement) {
        if (!in_order(added.from, added.to)) {
            std::swap(added.from, added.to);
        }
        const auto there = std::find_if(vectors_.begin(), vectors_.end(),
                                        [&added](const Vector& other) { return same(added, other); });
        if (there != vectors_.end()) {
            vectors_.erase(there);
        } else {
            vectors_.push_back(added);
        }
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

}  // namespace host
