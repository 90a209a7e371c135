// Fills outlines with smooth edges: each pixel takes as much of the colour as it is covered.
#pragma once

#include <vector>

#include "platform/host/view/outline.h"
#include "platform/host/view/raster.h"

namespace host {

/// Keeps its memory from one outline to the next.
class SmoothFill {
  public:
    /// Fills the outline, which is in pixels, with the raster's pen.
    void fill(Raster& raster, const Outline& outline);

  private:
    void add_edge(Vec2 from, Vec2 to);
    void add_row(size_t row, double left, double right, double height);
    void blend(Raster& raster) const;

    // The pixels of the raster that the outline may touch.
    int left_ = 0;
    int top_ = 0;
    size_t width_ = 0;
    size_t height_ = 0;
    /// For each pixel, by how much the cover changes from the pixel left of it to this one; a row has one pixel more.
    std::vector<float> changes_;
};

}  // namespace host
