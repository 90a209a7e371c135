// RubberBand, the arithmetic of the frame that a person drags to size the table; it needs no screen.
#pragma once

#include <optional>

#include "table/table_layout.h"

namespace corvanes {

/// A rectangle by two opposite corners.
struct Frame {
    TablePoint upper_left;
    TablePoint lower_right;
};

/// Keeps the proportions of the table while the pointer moves. A frame is drawn by complementing what is on the screen,
/// so drawing it a second time erases it.
class RubberBand {
  public:
    /// `width` and `height` of the table at scale 1, in drawing units; a table without a size keeps a square frame.
    RubberBand(TablePoint upper_left, double width, double height);

    /// The frame that stands on the screen, or that would be erased though it was never drawn.
    Frame frame() const { return {upper_left_, lower_right_}; }

    /// The pointer moved: the frame takes the place below and beside it that keeps the proportions, by the larger of
    /// the two distances (equal ones count as horizontal). Returns the frame to erase before the new one is drawn;
    /// nothing on the first movement.
    std::optional<Frame> move(TablePoint pointer);

    /// The scale of the frame that was drawn last; 1 when none was, or one without width.
    double picked_scale() const;

  private:
    TablePoint upper_left_;
    TablePoint lower_right_;
    double width_;
    double aspect_;
    double drawn_width_;
    bool moved_ = false;
};

}  // namespace corvanes
