// The pointer as it is drawn over a drawing.
#pragma once

#include <windows.h>

#include "platform/host/view/pointer_guide.h"
#include "platform/host/view/view_transform.h"

namespace host {

/// Complements the pixels under it: drawn again, it is gone.
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
    PointerGuide::Kind kind_;
    int width_;
    int height_;
};

}  // namespace host
