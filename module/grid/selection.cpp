#include "grid/selection.h"

#include <algorithm>

namespace corvanes {

bool Selection::contains(int column, int row) const {
    return std::any_of(ranges_.begin(), ranges_.end(), [column, row](const CellRange& range) {
        return column >= range.left && column <= range.right && row >= range.top && row <= range.bottom;
    });
}

void Selection::add(int column, int row) {
    set_anchor(column, row);
    if (!contains(column, row)) {
        ranges_.push_back({column, row, column, row});
        stretching_ = true;
    }
}

void Selection::remove(int column, int row) {
    set_anchor(column, row);
    std::vector<CellRange> left;
    for (const CellRange& range : ranges_) {
        const bool holds = column >= range.left && column <= range.right && row >= range.top && row <= range.bottom;
        if (!holds) {
            left.push_back(range);
            continue;
        }
        for (const CellRange& part :
             {CellRange{range.left, range.top, range.right, row - 1}, CellRange{range.left, row, column - 1, row},
              CellRange{column + 1, row, range.right, row},
              CellRange{range.left, row + 1, range.right, range.bottom}}) {
            if (part.left <= part.right && part.top <= part.bottom) {
                left.push_back(part);
            }
        }
    }
    ranges_ = std::move(left);
}

void Selection::set_anchor(int column, int row) {
    anchor_column_ = column;
    anchor_row_ = row;
    stretching_ = false;
}

void Selection::stretch_to(int column, int row) {
    const auto [left, right] = std::minmax(anchor_column_, column);
    const auto [top, bottom] = std::minmax(anchor_row_, row);
    if (!stretching_ || ranges_.empty()) {
        ranges_.emplace_back();
        stretching_ = true;
    }
    ranges_.back() = {left, top, right, bottom};
}

void Selection::insert_row(int row) {
    anchor_row_ += anchor_row_ >= row ? 1 : 0;
    std::vector<CellRange> followed;
    for (CellRange range : ranges_) {
        if (range.top < row && row <= range.bottom) {
            followed.push_back({range.left, range.top, range.right, row - 1});
            range.top = row;
        }
        const int down = range.top >= row ? 1 : 0;
        followed.push_back({range.left, range.top + down, range.right, range.bottom + down});
    }
    ranges_ = std::move(followed);
    stretching_ = false;
}

void Selection::remove_row(int row) {
    anchor_row_ -= anchor_row_ > row ? 1 : 0;
    for (CellRange& range : ranges_) {
        range.top -= range.top > row ? 1 : 0;
        range.bottom -= range.bottom >= row ? 1 : 0;
    }
    const auto gone = [](const CellRange& range) { return range.bottom < range.top; };
    std::erase_if(ranges_, gone);
    stretching_ = false;
}

void Selection::clip(int columns, int rows) {
    const auto outside = [columns, rows](const CellRange& range) { return range.left >= columns || range.top >= rows; };
    std::erase_if(ranges_, outside);
    for (CellRange& range : ranges_) {
        range.right = std::min(range.right, columns - 1);
        range.bottom = std::min(range.bottom, rows - 1);
    }
    stretching_ = false;
}

}  // namespace corvanes
