#include "grid/selected_cells.h"

#include <algorithm>

namespace corvanes {

CellBlock selected_block(const Selection& selection, const ColumnLayout& columns, CellAddress current) {
    std::vector<CellRange> ranges = selection.ranges();
    if (ranges.empty() && current.column >= 0 && current.row >= 0) {
        ranges.push_back({current.column, current.row, current.column, current.row});
    }
    CellBlock block;
    for (int column = 0; column < columns.count(); ++column) {
        const auto holds = [column](const CellRange& range) { return range.left <= column && column <= range.right; };
        if (columns.shows(column) && std::any_of(ranges.begin(), ranges.end(), holds)) {
            block.columns.push_back(column);
        }
    }
    std::sort(ranges.begin(), ranges.end(), [](const auto& one, const auto& other) { return one.top < other.top; });
    for (const CellRange& range : ranges) {
        if (block.rows.empty() || range.top > block.rows.back().last + 1) {
            block.rows.push_back({range.top, range.bottom});
        } else {
            block.rows.back().last = std::max(block.rows.back().last, range.bottom);
        }
    }
    return block;
}

}  // namespace corvanes
