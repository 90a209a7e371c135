// IMAGE, WIPEOUT and underlays, and the grounds of texts.
#include "platform/host/view/dim_style.h"
#include "platform/host/view/text_item.h"

namespace host {

namespace {

/// The frame of an image in the drawing, by its clipping boundary. Pixels count from the middle of the upper left one.
std::vector<Vec3> image_outline(const EntityScope& scope) {
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
    std::vector<Vec3> outline;
    outline.reserve(clip.size());
    for (const Vec3& pixel : clip) {
        outline.push_back(corner + across * (pixel.x + 0.5) + up * (height - 0.5 - pixel.y));
    }
    if (outline.size() > 1 && outline.front() == outline.back()) {
        outline.pop_back();
    }
    return outline;
}

std::vector<Vec2> plan(const EntityScope& scope, const std::vector<Vec3>& points) {
    std::vector<Vec2> seen;
    seen.reserve(points.size());
    for (const Vec3& point : points) {
        seen.push_back(scope.world(point));
    }
    return seen;
}

void draw_closed(const EntityScope& scope, std::vector<Vec2> outline) {
    outline.push_back(outline.front());
    scope.out.strip(outline);
}

/// The name, without its folders, of the file that the definition in group 340 names.
std::wstring file_name(const EntityScope& scope) {
    const dxf::RecordId definition = scope.settings.by_handle(scope.fields.handle(340));
    const std::wstring path = scope.text_of(definition, 1);
    return path.substr(path.find_last_of(L"/\\") + 1);
}

/// A name in the middle of a frame, as large as fits well.
void draw_name(const EntityScope& scope, const std::vector<Vec3>& frame, const Vec3& along) {
    constexpr double part_of_width = 0.8;
    constexpr double part_of_height = 0.1;
    Box2 area;
    for (const Vec3& corner : frame) {
        area.add(corner.plan());
    }
    MadeText text;
    text.value = file_name(scope);
    text.direction = along;
    text.attachment = 5;
    text.position = {area.centre().x, area.centre().y, frame.front().z};
    text.height = std::min(area.height() * part_of_height,
                           area.width() * part_of_width / std::max(estimated_width(text.value), 1.0));
    if (!text.value.empty()) {
        draw_made_text(scope, text);
    }
}

}  // namespace

void draw_image(const EntityScope& scope) {
    const std::vector<Vec3> outline = image_outline(scope);
    draw_closed(scope, plan(scope, outline));
    draw_name(scope, outline, scope.fields.point(11));
}

/// Draws an underlay by its boundary, in units of its page: only the underlay's own file says how large a whole page
/// is.
void draw_underlay(const EntityScope& scope) {
    std::vector<Vec3> boundary = scope.fields.points(11);
    if (boundary.size() == 2) {
        boundary = {boundary[0], {boundary[1].x, boundary[0].y, 0}, boundary[1], {boundary[0].x, boundary[1].y, 0}};
    }
    const bool unknown = boundary.size() < 3;
    if (unknown) {
        boundary = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    }
    const Transform3 page = object_coordinates(scope.fields) * Transform3::translation(scope.fields.point(10)) *
                            Transform3::rotation(scope.fields.angle(50)) *
                            Transform3::scaling({scope.fields.real(41, 1), scope.fields.real(42, 1), 1});
    for (Vec3& corner : boundary) {
        corner = page(corner);
    }
    draw_closed(scope, plan(scope, boundary));
    draw_name(scope, boundary, page.x);
}

void draw_wipeout(const EntityScope& scope) {
    const std::vector<Vec2> outline = plan(scope, image_outline(scope));
    const Ink frame = scope.out.ink();
    scope.out.set_ink(Ink::background());
    scope.out.fill(outline);
    scope.out.set_ink(frame);
    if (scope.settings.wipeout_frames()) {
        draw_closed(scope, outline);
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
        draw_closed(scope, outline);
    }
}

}  // namespace host
