// The columns of a grid's side heading and how they share its width.
#pragma once

#include <vector>

namespace corvanes {

class SideHeadingLayout {
  public:
    static constexpr int widest = 1024;

    int total_width() const { return total_; }
    // False, and nothing changed, unless 0 <= width <= widest. The columns keep their proportions: each is rounded to
    // whole pixels and the last one takes what rounding leaves. Columns that were all hidden share the width evenly.
    bool set_total_width(int width);

    int count() const { return static_cast<int>(widths_.size()); }
    int width(int column) const { return widths_[column]; }
    // Sets the width of a column, which changes the total. False, and nothing changed, for a missing column or when the
    // total would not fit.
    bool set_width(int column, int width);
    // False, and nothing changed, when there is no column or the total would not fit.
    bool set_widths(const std::vector<int>& widths);

  private:
    std::vector<int> widths_{55};
    int total_ = 55;
};

}  // namespace corvanes
