// WIPEOUT, and the masks behind texts.
#include "platform/host/view/entity_scope.h"

namespace host {

namespace {

/// The frame of an image in the drawing, by its clipping boundary. Pixels count from the middle of the upper left one.
std::vector<Vec2> image_outline(const EntityScope& scope) {
    const Vec3 corner = scope.fields.point(10);
    const Vec3 across = scope.fields.point(11);
    const Vec3 up = scope.fields.point(12);
    const double width = scope.fields.real(13);
    const double height = scope.fields.real(23);
    std::vector<Vec3> clip = scope.fields.points(14);
    const bool whole = clip.size() < 2 || (scope.fields.has(280) && scope.fields.integer(280) == 0);
    if (whole) {
        clip = {{-0.5, -0.5, 0}, {width - 0.5, height - 0.5, 0}};
    }
    if (clip.size() == 2) {
        clip = {clip[0], {clip[1].x, clip[0].y, 0}, clip[1], {clip[0].x, clip[1].y, 0}};
    }
    std::vector<Vec2> outline;
    for (const Vec3& pixel : clip) {
        outline.push_back(scope.world(corner + across * (pixel.x + 0.5) + up * (height - 0.5 - pixel.y)));
    }
    if (outline.size() > 1 && outline.front() == outline.back()) {
        outline.pop_back();
    }
    return outline;
}

}  // namespace

void draw_image_frame(const EntityScope& scope) {
    std::vector<Vec2> outline = image_outline(scope);
    outline.push_back(outline.front());
    scope.out.strip(outline);
}

void draw_wipeout(const EntityScope& scope) {
    std::vector<Vec2> outline = image_outline(scope);
    const Ink frame = scope.out.ink();
    scope.out.set_ink(Ink::background());
    scope.out.fill(outline);
    scope.out.set_ink(frame);
    if (scope.settings.wipeout_frames()) {
        outline.push_back(outline.front());
        scope.out.strip(outline);
    }
}

void draw_text_background(const EntityScope& scope, const Transform3& plane, const Box2& area, double height) {
    constexpr int64_t own_colour = 1;
    constexpr int64_t of_background = 2;
    constexpr int64_t framed = 16;
    constexpr int64_t half_opaque = 128;
    const int64_t kinds = scope.fields.integer(90);
    const bool seen_through =
        scope.fields.has(441) && (scope.fields.integer(441) & 0xFF) < half_opaque && scope.fields.integer(441) != 0;
    const double margin = height * (scope.fields.real(45, 1.5) - 1);
    const Vec2 low = area.low - Vec2{margin, margin};
    const Vec2 high = area.high + Vec2{margin, margin};
    std::vector<Vec2> outline;
    for (const Vec2 corner : {low, Vec2{high.x, low.y}, high, Vec2{low.x, high.y}}) {
        outline.push_back(plane({corner.x, corner.y, 0}).plan());
    }
    const Ink text = scope.out.ink();
    if ((kinds & (own_colour | of_background)) != 0 && !seen_through) {
        const dxf::Group* const true_colour = scope.fields.group(421);
        const auto index = static_cast<int>(scope.fields.integer(63));
        scope.out.set_ink((kinds & of_background) != 0 ? Ink::background()
                          : true_colour != nullptr     ? Ink::rgb(static_cast<uint32_t>(true_colour->integer()))
                                                       : indexed_ink(index));
        scope.out.fill(outline);
        scope.out.set_ink(text);
    }
    if ((kinds & framed) != 0) {
        outline.push_back(outline.front());
        scope.out.strip(outline);
    }
}

}  // namespace host
