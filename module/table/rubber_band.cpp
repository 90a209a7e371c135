#include "table/rubber_band.h"

#include <cmath>

namespace corvanes {

double RubberBand::picked_scale() const {
    return width_ == 0 || drawn_width_ == 0 ? 1 : drawn_width_ / width_;
}

RubberBand::RubberBand(TablePoint upper_left, double width, double height)
    : upper_left_(upper_left),
      lower_right_{upper_left.x + width, upper_left.y - height},
      width_(width),
      aspect_(height == 0 ? 1 : std::fabs(width / height)),
      drawn_width_(width) {}

std::optional<Frame> RubberBand::move(TablePoint pointer) {
    const double dx = std::fabs(pointer.x - upper_left_.x);
    const double dy = std::fabs(pointer.y - upper_left_.y);
    if (dy > dx) {
        drawn_width_ = dy * aspect_;
        pointer.x = upper_left_.x + drawn_width_;
    } else {
        drawn_width_ = dx;
        pointer.y = upper_left_.y - dx / aspect_;
    }
    const std::optional<Frame> erased = moved_ ? std::optional(frame()) : std::nullopt;
    moved_ = true;
    lower_right_ = pointer;
    return erased;
}

}  // namespace corvanes
