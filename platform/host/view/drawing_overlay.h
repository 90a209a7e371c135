// What is drawn over the picture of a drawing: temporary vectors, and the pointer.
#pragma once

#include <windows.h>

#include <vector>

#include "platform/host/prompt/person.h"
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
    void clear() { vectors_.clear(); }

  private:
    std::vector<Vector> vectors_;
};

/// The pointer. Complements the pixels under it: drawn again, it is gone.
class PointerShape {
  public:
    /// Half the side of the pick box, in pixels.
    static constexpr int pick_box = 5;
    /// The length of the arms of a cross that follows, in pixels.
    static constexpr int short_arm = 12;

    PointerShape(POINT at, const PointerGuide& guide, const ViewTransform& view);
    void draw(HDC context) const;

  private:
    bool has_rectangle() const;
    bool is_dashed() const;
    void draw_cross(HDC context) const;
    void draw_rectangle(HDC context, POINT from, POINT to, bool dashed) const;

    POINT at_;
    POINT anchor_;
    PointerGuide guide_;
    int width_;
    int height_;
};

}  // namespace host
