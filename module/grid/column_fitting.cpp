#include "grid/column_fitting.h"

#include <algorithm>

#include "grid/cell_grid.h"
#include "grid/widest_texts.h"

namespace corvanes {

namespace {

constexpr int heading_row = -1;
constexpr int line_width = 1;
// The width of a heading's raised edges, both sides together.
constexpr int heading_edges = 4;

int best_width(CellGrid& grid, CDC& dc, int column, int row) {
    CUGCell cell;
    grid.GetCell(column, row, &cell);
    return static_cast<int>(grid.CellType(cell.GetCellType()).BestSize(dc, cell).cx) + line_width;
}

}  // namespace

int fitting_width(CellGrid& grid, int column) {
    CClientDC dc(&grid);
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, grid.GetGridFont());
    WidestTexts widest([&dc](wchar_t character) { return text_width(dc, {&character, 1}); });
    for (int row = 0; row < grid.GetRowCount(); ++row) {
        if (const wchar_t* const text = grid.GetCellText(column, row)) {
            widest.add(row, text);
        }
    }
    int width = best_width(grid, dc, column, heading_row) + heading_edges;
    for (const int row : widest.rows()) {
        width = std::max(width, best_width(grid, dc, column, row));
    }
    ::SelectObject(dc.m_hDC, former);
    return width;
}

}  // namespace corvanes
