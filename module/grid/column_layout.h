// The columns of a grid: their widths, and where each one lies.
#pragma once

#include <span>
#include <vector>

namespace corvanes {

// Pixels count from the left edge of column 0, whatever is scrolled. A stored width below 0 is kept and shown as 0.
class ColumnLayout {
  public:
    static constexpr int most_columns = 32000;
    static constexpr int default_width = 75;
    // The limits, in pixels, of a width that a person drags. A narrower column could not be taken hold of again; no
    // screen shows a wider one.
    static constexpr int narrowest_column = 8;
    static constexpr int widest_column = 8192;

    int count() const { return static_cast<int>(widths_.size()); }
    // False, and nothing changed, for a count below 0 or above most_columns. Columns that stay keep their widths.
    bool set_count(int count);
    bool contains(int column) const { return column >= 0 && column < count(); }
    int width(int column) const { return widths_[column]; }
    void set_width(int column, int width);
    // A hidden column keeps its width for when it is shown again; a new width shows it.
    bool hidden(int column) const { return hidden_[column]; }
    void hide(int column, bool hide);
    // Whether the cells' texts stand at the right edge; at first they do not.
    bool aligned_right(int column) const { return aligned_right_[column]; }
    void align_right(int column, bool right) { aligned_right_[column] = right; }

    // The column's left edge; `column` may be the count, which gives the total width.
    int left(int column) const;
    int shown_width(int column) const { return left(column + 1) - left(column); }
    // Whether there is such a column, and it is neither hidden nor 0 wide.
    bool shows(int column) const { return contains(column) && shown_width(column) > 0; }
    // -1 when all are hidden.
    int first_shown() const { return at(0); }
    int last_shown() const { return at(total_width() - 1); }
    // `column` itself unless it is hidden, else the nearest shown one to its right, or to its left.
    int nearest_shown(int column) const;
    int total_width() const { return left(count()); }
    // The column at `x`, or -1 outside of all of them.
    int at(int x) const;
    // The column whose right border is within `reach` pixels of `x`, or -1. A point to the right of a border takes hold
    // of the last column that ends there, so that a column of width 0 can be pulled open again.
    int border_at(int x, int reach) const;

  private:
    void update() const;

    std::vector<int> widths_;
    std::vector<bool> aligned_right_;
    std::vector<bool> hidden_;
    // Left edges, one more than columns; brought up to date when asked for.
    mutable std::vector<int> edges_;
    mutable bool stale_ = true;
};

// Replaces each stored width that nobody could have dragged (below the narrowest or above the widest) by its default.
void mend_widths(std::span<int> widths, std::span<const int> defaults);

}  // namespace corvanes
