// Outlines, above all those of letters: what they are, who gives them, and how they are filled with smooth edges.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/host/view/geometry.h"
#include "platform/host/view/text_item.h"

namespace host {

class Raster;

/// Closed contours. Inside is what they turn around; one that turns the other way is a hole.
struct Outline {
    std::vector<Vec2> points;    ///< of all contours, one after another
    std::vector<uint32_t> ends;  ///< for each contour, the number of points up to its last

    void clear() {
        points.clear();
        ends.clear();
    }
    /// Adds another one, moved along x.
    void append(const Outline& other, double x);
};

/// A line of text in its own plane: it begins at 0 on the base line and runs along x, capitals are 1 high.
struct TextShape {
    Outline outline;
    double width = 0;
};

/// Knows the fonts. Where there is no typesetter, texts are painted as lines.
class Typesetter {
  public:
    virtual ~Typesetter() = default;
    /// The shape of an item's text, its letters in the order in which they are seen, neither placed nor stretched. Good
    /// until the next call.
    virtual const TextShape& shape(const TextItem& item, const FontFace& face) = 0;
};

/// Fills outlines: each pixel takes as much of the colour as it is covered. Keeps its memory from one outline to the
/// next.
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
