// Which part of the drawing a window shows, and how large.
#pragma once

#include "platform/host/view/geometry.h"

namespace host {

/// Between world coordinates (y up) and pixels of the window (y down, the origin at its upper left corner; a pixel
/// covers the unit square from its number on).
class ViewTransform {
  public:
    ViewTransform() = default;
    ViewTransform(int width, int height) { resize(width, height); }

    int width() const { return width_; }
    int height() const { return height_; }
    /// The centre of what is shown stays in the centre.
    void resize(int width, int height);

    Vec2 centre() const { return centre_; }
    double pixels_per_unit() const { return scale_; }
    Vec2 to_pixel(Vec2 world) const;
    Vec2 to_world(Vec2 pixel) const;
    /// The nearest point with no more decimals than can be seen: a place within a twentieth of a pixel.
    Vec2 rounded(Vec2 world) const;
    Affine2 to_pixels() const;
    Box2 visible() const;

    /// Makes everything `factor` times as large; the point under `pixel` stays there.
    void zoom_about(Vec2 pixel, double factor);
    /// Moves what is shown by a distance in pixels.
    void pan(Vec2 pixels);
    /// Shows a box in full, as large as it can be with `margin` of its size around. A box without any extent is shown
    /// at the scale that there is; an empty one changes nothing.
    void show(const Box2& box, double margin = 0);

  private:
    Vec2 centre_;
    double scale_ = 1;
    int width_ = 1;
    int height_ = 1;
};

}  // namespace host
