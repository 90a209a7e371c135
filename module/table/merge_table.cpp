#include "table/merge_table.h"

#include <numeric>

MergeTable::MergeTable(double text_height, double character_width, const int* widths, int column_count, int row_count)
    : text_height_(text_height),
      character_width_(character_width),
      widths_(widths),
      column_count_(column_count),
      row_count_(row_count),
      total_width_(columnLeft(column_count)) {}

double MergeTable::columnLeft(int column) const {
    return std::accumulate(widths_, widths_ + column, 0) * character_width_;
}

double MergeTable::centredTextX(std::size_t length, int column) const {
    constexpr double fill = 0.9;
    return columnLeft(column) + character_width_ * (widths_[column] - static_cast<double>(length) * fill) / 2;
}
