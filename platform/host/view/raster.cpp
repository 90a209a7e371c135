#include "platform/host/view/raster.h"

#include <algorithm>

namespace host {

namespace {

/// Keeps the part of a line from `from` to `to` (as parts of it) on one side of an edge; false when none is left.
bool keep(double outward, double distance, double& from, double& to) {
    if (outward == 0) {
        return distance >= 0;
    }
    const double part = distance / outward;
    if (outward < 0) {
        from = std::max(from, part);
    } else {
        to = std::min(to, part);
    }
    return from <= to;
}

constexpr size_t most_crossings = 1 << 20;

/// The first pixel whose middle is not left of x.
int first_pixel_behind(float x) {
    return static_cast<int>(std::ceil(x - 0.5F));
}

constexpr int fraction_bits = 16;

int64_t fixed(double value) {
    return static_cast<int64_t>(value * (1 << fraction_bits));
}

}  // namespace

void Raster::clear(uint32_t colour) {
    std::fill_n(pixels_, static_cast<ptrdiff_t>(width_) * height_, colour);
}

void Raster::set_pen(uint32_t colour, bool dashed) {
    colour_ = colour;
    dashed_ = dashed;
    dash_ = 0;
    width_of_lines_ = 1;
}

void Raster::begin_clip(const std::vector<Vec2>& polygon) {
    Box2 area;
    for (const Vec2 corner : polygon) {
        area.add(corner);
    }
    area = area.common(box());
    Mask mask;
    if (!area.empty()) {
        mask.left = static_cast<int>(area.low.x);
        mask.top = static_cast<int>(area.low.y);
        mask.width = std::min(static_cast<int>(area.high.x) + 1, width_) - mask.left;
        mask.height = std::min(static_cast<int>(area.high.y) + 1, height_) - mask.top;
        mask.seen.resize(static_cast<size_t>(mask.width) * static_cast<size_t>(mask.height));
        std::vector<Vec2> moved;
        moved.reserve(polygon.size());
        for (const Vec2 corner : polygon) {
            moved.push_back(corner - Vec2{static_cast<double>(mask.left), static_cast<double>(mask.top)});
        }
        Raster inside(mask.seen.data(), mask.width, mask.height);
        inside.set_pen(1);
        inside.fill(moved);
    }
    for (size_t i = 0; i < mask.seen.size() && !masks_.empty(); ++i) {
        const auto place = static_cast<int>(i);
        mask.seen[i] &= masks_.back().has(mask.left + place % mask.width, mask.top + place / mask.width) ? 1 : 0;
    }
    masks_.push_back(std::move(mask));
}

/// The pixels across a wide line at one of its steps.
void Raster::put_across(int x, int y, bool steep, int width) {
    for (int i = 0; i < width; ++i) {
        const int beside = i - (width - 1) / 2;
        steep ? put(x + beside, y) : put(x, y + beside);
    }
}

void Raster::dot(Vec2 point) {
    if (box().contains(point)) {
        put(static_cast<int>(point.x), static_cast<int>(point.y));
    }
}

void Raster::blend(int x, int y, float part) {
    if (!masks_.empty() && !masks_.back().has(x, y)) {
        return;
    }
    uint32_t& pixel = pixels_[static_cast<ptrdiff_t>(y) * width_ + x];
    constexpr uint32_t steps = 32;
    const auto weight = (static_cast<uint32_t>(part * 2 * steps) + 1) / 2;
    const auto mix = [&](int shift) {
        const uint32_t under = pixel >> shift & 0xFF;
        const uint32_t over = colour_ >> shift & 0xFF;
        return (under * (steps - weight) + over * weight) / steps << shift;
    };
    pixel = mix(16) | mix(8) | mix(0);
}

bool Raster::clip(Vec2& from, Vec2& to) const {
    const Box2 area = box();
    if (area.contains(from) && area.contains(to)) {
        return true;
    }
    const Vec2 run = to - from;
    double begin = 0;
    double end = 1;
    if (!keep(-run.x, from.x - area.low.x, begin, end) || !keep(run.x, area.high.x - from.x, begin, end) ||
        !keep(-run.y, from.y - area.low.y, begin, end) || !keep(run.y, area.high.y - from.y, begin, end)) {
        return false;
    }
    const Vec2 start = from;
    const auto inside = [&area](Vec2 point) {  // for what rounding leaves of lines to far away
        return Vec2{std::clamp(point.x, area.low.x, area.high.x), std::clamp(point.y, area.low.y, area.high.y)};
    };
    from = inside(start + run * begin);
    to = inside(start + run * end);
    return finite(from) && finite(to);
}

/// Steps along the longer axis; each step sets the pixel that the line passes at the step's middle.
void Raster::line(Vec2 from, Vec2 to) {
    if (!clip(from, to)) {
        return;
    }
    const Vec2 run = to - from;
    const bool steep = std::fabs(run.y) > std::fabs(run.x);
    const double long_run = steep ? run.y : run.x;
    const double first = steep ? from.y : from.x;
    const auto begin = static_cast<int>(first);
    const auto end = static_cast<int>(first + long_run);
    const double slope = long_run != 0 ? (steep ? run.x : run.y) / long_run : 0;
    const int step = end < begin ? -1 : 1;
    const double inside = std::clamp((begin + 0.5 - first) * step, 0.0, std::fabs(long_run)) * step;
    int64_t across = fixed((steep ? from.x : from.y) + inside * slope);
    const int64_t across_step = fixed(slope * step);
    const int width = dashed_ || width_of_lines_ < 2
                          ? 1
                          : static_cast<int>(std::lround(width_of_lines_ * std::sqrt(1 + slope * slope)));
    for (int along = begin;; along += step) {
        const auto side = static_cast<int>(across >> fraction_bits);
        if (width == 1) {
            steep ? put(side, along) : put(along, side);
        } else {
            put_across(steep ? side : along, steep ? along : side, steep, width);
        }
        if (along == end) {
            return;
        }
        across += across_step;
    }
}

void Raster::strip(const std::vector<Vec2>& points) {
    for (size_t i = 1; i < points.size(); ++i) {
        line(points[i - 1], points[i]);
        if (!dashed_ && width_of_lines_ > 2 && i + 1 < points.size() && box().contains(points[i])) {
            joint(points[i]);
        }
    }
}

/// A disc that closes the gap at a corner of a wide line.
void Raster::joint(Vec2 corner) {
    const int reach = width_of_lines_ / 2;
    for (int y = -reach; y <= reach; ++y) {
        for (int x = -reach; x <= reach; ++x) {
            if (4 * (x * x + y * y) <= width_of_lines_ * width_of_lines_) {
                put(static_cast<int>(corner.x) + x, static_cast<int>(corner.y) + y);
            }
        }
    }
}

/// Where an edge passes the middle of each row.
void Raster::add_crossings(Vec2 from, Vec2 to) {
    if (from.y > to.y) {
        std::swap(from, to);
    }
    const double first = std::max(std::ceil(from.y - 0.5), 0.0);
    const double last = std::min(std::ceil(to.y - 0.5), static_cast<double>(height_)) - 1;
    if (!(first <= last)) {
        return;
    }
    const double slope = (to.x - from.x) / (to.y - from.y);
    const double rightmost = width_;
    for (int row = static_cast<int>(first); row <= static_cast<int>(last); ++row) {
        add_crossing(row, std::clamp(from.x + (row + 0.5 - from.y) * slope, 0.0, rightmost));
    }
}

void Raster::add_crossing(int row, double x) {
    if (!marks_.empty()) {
        mark({row, static_cast<float>(x)});
        return;
    }
    crossings_.push_back({row, static_cast<float>(x)});
    if (crossings_.size() == most_crossings) {
        marks_.resize(static_cast<size_t>(width_) * static_cast<size_t>(height_));
        for (const Crossing& crossing : crossings_) {
            mark(crossing);
        }
        crossings_.clear();
    }
}

void Raster::mark(const Crossing& crossing) {
    const int x = first_pixel_behind(crossing.x);
    if (x < width_) {
        const size_t place = static_cast<size_t>(crossing.row) * static_cast<size_t>(width_) + static_cast<size_t>(x);
        marks_[place] = !marks_[place];
    }
}

void Raster::fill_between_marks() {
    size_t place = 0;
    for (int row = 0; row < height_; ++row) {
        bool inside = false;
        for (int x = 0; x < width_; ++x) {
            inside = inside != marks_[place++];
            if (inside) {
                put(x, row);
            }
        }
    }
    marks_.clear();
}

void Raster::fill_between_crossings() {
    std::sort(crossings_.begin(), crossings_.end(),
              [](const Crossing& a, const Crossing& b) { return a.row != b.row ? a.row < b.row : a.x < b.x; });
    for (size_t i = 0; i + 1 < crossings_.size(); i += 2) {
        const int end = first_pixel_behind(crossings_[i + 1].x);
        for (int x = first_pixel_behind(crossings_[i].x); x < end; ++x) {
            put(x, crossings_[i].row);
        }
    }
    crossings_.clear();
}

void Raster::fill(const std::vector<Vec2>& polygon) {
    for (size_t i = 0; i < polygon.size(); ++i) {
        add_crossings(polygon[i], polygon[(i + 1) % polygon.size()]);
    }
    marks_.empty() ? fill_between_crossings() : fill_between_marks();
}

}  // namespace host
