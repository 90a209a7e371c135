// Drawing lines and areas into pixels in memory.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/host/view/geometry.h"

namespace host {

/// Draws into pixels (0x00RRGGBB, rows from the top) that it does not own. All coordinates are pixels as in
/// ViewTransform, of any size: what lies outside is cut off.
class Raster {
  public:
    Raster(uint32_t* pixels, int width, int height) : pixels_(pixels), width_(width), height_(height) {}

    int width() const { return width_; }
    int height() const { return height_; }
    Box2 box() const { return {{0, 0}, {static_cast<double>(width_), static_cast<double>(height_)}}; }
    uint32_t at(int x, int y) const { return row(y)[x]; }
    const uint32_t* row(int y) const { return pixels_ + static_cast<ptrdiff_t>(y) * width_; }

    void clear(uint32_t colour);
    /// Sets the pen for all that is drawn from now on. Dashed lines leave out every second group of four pixels.
    void set_pen(uint32_t colour, bool dashed = false);
    /// Sets the width of lines, in pixels; each set_pen() makes it 1. Dashed lines stay thin.
    void set_width(int width) { width_of_lines_ = width; }
    /// What is drawn until the matching end_clip() shows only inside of this polygon, and of those begun before it.
    void begin_clip(const std::vector<Vec2>& polygon);
    void end_clip() { masks_.pop_back(); }
    void dot(Vec2 point);
    /// Mixes a part of the pen's colour, from 0 to 1, into a pixel of the raster, in few steps: the eye sees no more,
    /// and a picture file takes less with few colours.
    void blend(int x, int y, float part);
    void line(Vec2 from, Vec2 to);
    void strip(const std::vector<Vec2>& points);
    /// The inside of a closed polygon by the even-odd rule.
    void fill(const std::vector<Vec2>& polygon);

  private:
    struct Crossing {
        int row;
        float x;
    };
    /// Which pixels of a part of the raster are seen.
    struct Mask {
        int left = 0;
        int top = 0;
        int width = 0;
        int height = 0;
        std::vector<uint32_t> seen;
        bool has(int x, int y) const {
            return x >= left && y >= top && x - left < width && y - top < height &&
                   seen[static_cast<size_t>(y - top) * static_cast<size_t>(width) + static_cast<size_t>(x - left)] != 0;
        }
    };
    bool clip(Vec2& from, Vec2& to) const;
    void joint(Vec2 corner);
    void put_across(int x, int y, bool steep, int width);
    void put(int x, int y) {
        if (static_cast<unsigned>(x) < static_cast<unsigned>(width_) &&
            static_cast<unsigned>(y) < static_cast<unsigned>(height_) && (!dashed_ || (dash_++ & 4) == 0) &&
            (masks_.empty() || masks_.back().has(x, y))) {
            pixels_[static_cast<ptrdiff_t>(y) * width_ + x] = colour_;
        }
    }
    void add_crossings(Vec2 from, Vec2 to);
    void add_crossing(int row, double x);
    void fill_between_crossings();
    void mark(const Crossing& crossing);
    void fill_between_marks();

    uint32_t* pixels_;
    int width_;
    int height_;
    uint32_t colour_ = 0;
    bool dashed_ = false;
    int width_of_lines_ = 1;
    std::vector<Mask> masks_;  ///< each lies within the one before
    unsigned dash_ = 0;
    std::vector<Crossing> crossings_;
    /// Where there are too many crossings: whether a pixel is the first behind an odd number of them. Else empty.
    std::vector<bool> marks_;
};

}  // namespace host
