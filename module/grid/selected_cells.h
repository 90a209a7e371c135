// The cells that a command works on: what is selected and shown, or the current cell. Pure.
#pragma once

#include <vector>

#include "grid/cell_change.h"
#include "grid/column_layout.h"
#include "grid/selection.h"

namespace corvanes {

struct RowSpan {
    int first;
    int last;  // inclusive
    bool operator==(const RowSpan&) const = default;
};

// The columns and rows that have a selected cell; not every cell where they cross need be selected.
struct CellBlock {
    std::vector<int> columns;   // shown ones, from left to right
    std::vector<RowSpan> rows;  // from top to bottom, apart from each other
    bool empty() const { return columns.empty() || rows.empty(); }
    bool operator==(const CellBlock&) const = default;
};

// The selected cells that are shown; without a selection the current cell. Empty when there is none, or none is shown.
CellBlock selected_block(const Selection& selection, const ColumnLayout& columns, CellAddress current);

// Calls visit(CellAddress) for the cells of a block, row by row, and end_row() behind each row.
template <class Visit, class EndRow>
void for_each_cell(const CellBlock& block, Visit visit, EndRow end_row) {
    for (const RowSpan& span : block.rows) {
        for (int row = span.first; row <= span.last; ++row) {
            for (const int column : block.columns) {
                visit(CellAddress{column, row});
            }
            end_row();
        }
    }
}

template <class Visit>
void for_each_cell(const CellBlock& block, Visit visit) {
    for_each_cell(block, visit, [] {});
}

}  // namespace corvanes
