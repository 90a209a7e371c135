// Temporary vectors over a drawing.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/host/view/list_painter.h"
#include "platform/host/view/view_transform.h"

namespace host {

/// Vectors stay until they are cleared, through zooming and panning. Those in the complementing ink undo themselves:
/// drawn a second time, either way round, one is gone.
class VectorOverlay {
  public:
    static constexpr int complement = -1;

    struct Vector {
        Vec2 from;
        Vec2 to;
        int colour;  ///< an index, 0 for the background, or `complement`
        bool highlight;
    };

    /// Adds a vector and draws it at once into `context`, which shows all vectors added before.
    void add(const Vector& vector, HDC context, const ViewTransform& view, const PaintColours& colours);
    /// Draws all vectors over a fresh picture.
    void draw(HDC context, const ViewTransform& view, const PaintColours& colours) const;
    bool empty() const { return vectors_.empty(); }
    void clear() { vectors_.clear(); }

  private:
    std::vector<Vector> vectors_;
};

/// A line of pixels that complements what is there. Its last pixel is left out, so that connected lines do not undo
/// each other where they meet. Both directions set the same pixels when `from` and `to` are ordered.
void draw_complementing(HDC context, const std::vector<POINT>& points, bool dashed);

/// A pixel within the range that GDI draws in.
POINT gdi_point(Vec2 pixel);

}  // namespace host
