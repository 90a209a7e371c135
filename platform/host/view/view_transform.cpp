#include "platform/host/view/view_transform.h"

namespace host {

namespace {

constexpr double smallest_scale = 1e-15;
constexpr double largest_scale = 1e15;

}  // namespace

void ViewTransform::resize(int width, int height) {
    width_ = std::max(width, 1);
    height_ = std::max(height, 1);
}

Affine2 ViewTransform::to_pixels() const {
    const Vec2 middle{width_ / 2.0, height_ / 2.0};
    return {{scale_, 0}, {0, -scale_}, {middle.x - centre_.x * scale_, middle.y + centre_.y * scale_}};
}

Vec2 ViewTransform::to_pixel(Vec2 world) const {
    return to_pixels()(world);
}

Vec2 ViewTransform::to_world(Vec2 pixel) const {
    return {centre_.x + (pixel.x - width_ / 2.0) / scale_, centre_.y - (pixel.y - height_ / 2.0) / scale_};
}

Vec2 ViewTransform::rounded(Vec2 world) const {
    const double digits = std::ceil(std::log10(scale_)) + 1;  // behind the point, or before it when negative
    const double steps = std::pow(10, std::fabs(digits));     // whole numbers, which keep decimals short
    const auto round = [&](double value) {
        return digits < 0 ? std::round(value / steps) * steps : std::round(value * steps) / steps;
    };
    return {round(world.x), round(world.y)};
}

Box2 ViewTransform::visible() const {
    return Box2::between(to_world({0, 0}), to_world({static_cast<double>(width_), static_cast<double>(height_)}));
}

void ViewTransform::zoom_about(Vec2 pixel, double factor) {
    const Vec2 fixed = to_world(pixel);
    scale_ = std::clamp(scale_ * factor, smallest_scale, largest_scale);
    centre_ = centre_ + (fixed - to_world(pixel));
}

void ViewTransform::pan(Vec2 pixels) {
    centre_ = centre_ + Vec2{-pixels.x, pixels.y} * (1 / scale_);
}

void ViewTransform::show(const Box2& box, double margin) {
    if (box.empty()) {
        return;
    }
    centre_ = box.centre();
    const double grown = 1 + 2 * margin;
    const double scale = std::min(width_ / (box.width() * grown), height_ / (box.height() * grown));
    if (std::isfinite(scale) && scale > 0) {
        scale_ = std::clamp(scale, smallest_scale, largest_scale);
    }
}

}  // namespace host
