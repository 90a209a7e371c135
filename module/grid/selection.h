// Which cells of a grid are selected.
#pragma once

#include <vector>

namespace corvanes {

struct CellRange {
    int left;
    int top;
    int right;
    int bottom;  // all four inclusive
    bool operator==(const CellRange&) const = default;
};

// A list of rectangles, the last of which can still be stretched from its anchor.
class Selection {
  public:
    void clear() { ranges_.clear(); }
    bool empty() const { return ranges_.empty(); }
    bool contains(int column, int row) const;
    // Adds one cell, which becomes the anchor.
    void add(int column, int row);
    // Takes one cell out, which becomes the anchor.
    void remove(int column, int row);
    // Sets where the next stretch begins, and selects nothing yet.
    void set_anchor(int column, int row);
    // Makes the last rectangle reach from the anchor to this cell; begins it when there is none.
    void stretch_to(int column, int row);
    // The cells follow their rows; those of a removed row are no longer selected.
    void insert_row(int row);
    void remove_row(int row);
    // Drops what lies outside of these counts.
    void clip(int columns, int rows);
    const std::vector<CellRange>& ranges() const { return ranges_; }

  private:
    std::vector<CellRange> ranges_;
    int anchor_column_ = 0;
    int anchor_row_ = 0;
    bool stretching_ = false;
};

}  // namespace corvanes
