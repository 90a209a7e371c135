#include "platform/host/view/outline.h"

#include <algorithm>
#include <cmath>

#include "platform/host/view/raster.h"

namespace host {

void Outline::append(const Outline& other, double x) {
    const auto before = static_cast<uint32_t>(points.size());
    for (const Vec2 point : other.points) {
        points.push_back({point.x + x, point.y});
    }
    for (const uint32_t end : other.ends) {
        ends.push_back(before + end);
    }
}

void SmoothFill::fill(Raster& raster, const Outline& outline) {
    Box2 box;
    for (const Vec2 point : outline.points) {
        if (!finite(point)) {
            return;
        }
        box.add(point);
    }
    if (!box.intersects(raster.box())) {
        return;
    }
    left_ = static_cast<int>(std::max(std::floor(box.low.x), 0.0));
    top_ = static_cast<int>(std::max(std::floor(box.low.y), 0.0));
    width_ = static_cast<size_t>(std::min(std::ceil(box.high.x), raster.box().high.x) - left_);
    height_ = static_cast<size_t>(std::min(std::ceil(box.high.y), raster.box().high.y) - top_);
    changes_.assign((width_ + 1) * height_ + 1, 0);
    const Vec2 corner{static_cast<double>(left_), static_cast<double>(top_)};
    uint32_t first = 0;
    for (const uint32_t end : outline.ends) {
        for (uint32_t i = first; i < end; ++i) {
            add_edge(outline.points[i] - corner, outline.points[i + 1 < end ? i + 1 : first] - corner);
        }
        first = end;
    }
    blend(raster);
}

/// Cuts an edge at the borders of the rows. What is beside the pixels counts at their rim: the cover right of it is the
/// same.
void SmoothFill::add_edge(Vec2 from, Vec2 to) {
    const double turn = from.y < to.y ? 1 : -1;
    if (turn < 0) {
        std::swap(from, to);
    }
    const double begin = std::max(from.y, 0.0);
    const double end = std::min(to.y, static_cast<double>(height_));
    if (!(begin < end)) {
        return;
    }
    const double slope = (to.x - from.x) / (to.y - from.y);
    const auto at = [&](double y) {
        return std::clamp(from.x + (y - from.y) * slope, 0.0, static_cast<double>(width_));
    };
    double x = at(begin);
    double y = begin;
    for (auto row = static_cast<size_t>(begin); row < height_ && static_cast<double>(row) < end; ++row) {
        const double next_y = std::min(static_cast<double>(row + 1), end);
        const double next_x = at(next_y);
        add_row(row, std::min(x, next_x), std::max(x, next_x), turn * (next_y - y));
        x = next_x;
        y = next_y;
    }
}

/// An edge that crosses `height` of a row between two places covers what is right of it.
void SmoothFill::add_row(size_t row, double left, double right, double height) {
    float* const changes = changes_.data() + row * (width_ + 1);
    const auto first = static_cast<size_t>(left);
    const auto last = static_cast<size_t>(right);
    if (first == last) {
        const double covered = height * (static_cast<double>(first) + 1 - (left + right) / 2);
        changes[first] += static_cast<float>(covered);
        changes[first + 1] += static_cast<float>(height - covered);
        return;
    }
    // What the edge covers of a pixel: all that it has passed before, and a triangle or trapezium of what it passes
    // here.
    const double per_pixel = height / (right - left);
    double before = 0;
    for (size_t pixel = first; pixel <= last; ++pixel) {
        const auto origin = static_cast<double>(pixel);
        const double begin = std::max(left - origin, 0.0);
        const double end = std::min(right - origin, 1.0);
        const double passed = per_pixel * (origin + begin - left);
        const double covered = passed + per_pixel * (end - begin) * (1 - (begin + end) / 2);
        changes[pixel] += static_cast<float>(covered - before);
        before = covered;
    }
    changes[last + 1] += static_cast<float>(height - before);
}

void SmoothFill::blend(Raster& raster) const {
    for (size_t row = 0; row < height_; ++row) {
        const float* const changes = changes_.data() + row * (width_ + 1);
        float cover = 0;
        for (size_t pixel = 0; pixel < width_; ++pixel) {
            cover += changes[pixel];
            const float part = std::min(std::fabs(cover), 1.0F);
            if (part > 1.0F / 256) {
                raster.blend(left_ + static_cast<int>(pixel), top_ + static_cast<int>(row), part);
            }
        }
    }
}

}  // namespace host
