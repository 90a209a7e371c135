// The columns of a grid: their widths, and where each one lies.
#pragma once

#include <vector>

namespace corvanes {

// Pixels count from the left edge of column 0, whatever is scrolled. A stored width below 0 is kept and shown as 0.
class ColumnLayout {
  public:
    static constexpr int most_columns = 32000;
    static constexpr int default_width = 75;

    int count() const { return static_cast<int>(widths_.size()); }
    // False, and nothing changed, for a count below 0 or above most_columns. Columns that stay keep their widths.
    bool set_count(int count);
    bool contains(int column) const { return column >= 0 && column < count(); }
    int width(int column) const { return widths_[column]; }
    void set_width(int column, int width);

    // The column's left edge; `column` may be the count, which gives the total width.
    int left(int column) const;
    int shown_width(int column) const { return left(column + 1) - left(column); }
    int total_width() const { return left(count()); }
    // The column at `x`, or -1 outside of all of them.
    int at(int x) const;
    // The column whose right border is within `reach` pixels of `x`, or -1. A point to the right of a border takes hold
    // of the last column that ends there, so that a column of width 0 can be pulled open again.
    int border_at(int x, int reach) const;

  private:
    void update() const;

    std::vector<int> widths_;
    // Left edges, one more than columns; brought up to date when asked for.
    mutable std::vector<int> edges_;
    mutable bool stale_ = true;
};

}  // namespace corvanes
