// The rows of a grid: their heights, and which of them a window shows.
#pragma once

#include <vector>

namespace corvanes {

// Rows scroll as wholes: a window shows the rows from a top row on. Up to most_measured_rows each row may have a height
// of its own; above, all have the default height and none is kept.
class RowLayout {
  public:
    static constexpr int most_measured_rows = 64000;
    static constexpr int tallest_row = 1024;

    int count() const { return count_; }
    bool set_count(int count);
    bool uniform() const { return count_ > most_measured_rows; }
    int default_height() const { return default_height_; }
    // False, and nothing changed, unless 1 <= height <= tallest_row. Rows with a height of their own keep it.
    bool set_default_height(int height);
    int height(int row) const;
    // False, and nothing changed, for a missing row, a height outside 0..tallest_row or uniform rows.
    bool set_height(int row, int height);
    // Heights move along with their rows; the count follows by set_count.
    void insert(int row);
    void remove(int row);

    // The row at `y` pixels below the upper edge of row `top`, or -1 below the last row.
    int at(int y, int top) const;
    // The pixels from the upper edge of row `top` to that of `row`, which is not above it; at most `limit`.
    int distance(int top, int row, int limit) const;
    // How many rows fit whole into `height` pixels from `top` on; at least 1.
    int fitting(int top, int height) const;
    // The smallest top row that still shows the last row whole.
    int last_top(int height) const;
    // The top row closest to `top` that shows `row` whole (or its start, when it is taller than the window).
    int top_showing(int row, int top, int height) const;

  private:
    bool measured() const { return !heights_.empty(); }
    int top_ending_at(int row, int height) const;

    int count_ = 0;
    int default_height_ = 20;
    // Empty while all rows have the default height; -1 for a row without a height of its own.
    std::vector<int> heights_;
};

}  // namespace corvanes
