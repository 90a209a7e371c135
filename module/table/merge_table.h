// MergeTable, the columns of the table in the drawing: where each begins, in drawing units.
#pragma once

#include <cstddef>

class MergeTable {
  public:
    /// `widths` has one entry a column, in characters; this object and its copies borrow it for their life.
    MergeTable(double text_height, double character_width, const int* widths, int column_count, int row_count);
    virtual ~MergeTable() = default;
    MergeTable(const MergeTable&) = default;
    MergeTable& operator=(const MergeTable&) = default;

    double text_height() const { return text_height_; }
    double character_width() const { return character_width_; }
    int column_count() const { return column_count_; }
    int row_count() const { return row_count_; }
    double total_width() const { return total_width_; }

    /// The left edge of a column; for the column after the last, the table's width.
    double columnLeft(int column) const;
    /// The x at which a text of `length` characters begins so that it stands in the middle of a column, when a
    /// character takes nine tenths of its width.
    double centredTextX(std::size_t length, int column) const;

  private:
    double text_height_;
    double character_width_;
    const int* widths_;
    int column_count_;
    int row_count_;
    double total_width_;
};
