// The rows of a grid: their height, and which of them a window shows.
#pragma once

namespace corvanes {

// All rows have one height and scroll as wholes: a window shows the rows from a top row on.
class RowLayout {
  public:
    static constexpr int tallest_row = 1024;

    int count() const { return count_; }
    // Not below 0.
    void set_count(int count) { count_ = count; }
    int height() const { return height_; }
    // False, and nothing changed, unless 1 <= height <= tallest_row.
    bool set_height(int height);

    // The row at `y` pixels below the top of `top`, or -1 below the last row.
    int at(int y, int top) const;
    // Pixels from the top of row `top` to the top of `row` (not above it), at most `limit`.
    int distance(int top, int row, int limit) const;
    // How many rows fit whole into `height` pixels; at least 1.
    int fitting(int height) const;
    // The smallest top row that still shows the last row whole.
    int last_top(int height) const;
    // The top row closest to `top` that shows `row` whole (or its start, when it is taller than the window).
    int top_showing(int row, int top, int height) const;

  private:
    int count_ = 0;
    int height_ = 20;
};

}  // namespace corvanes
