#include "grid/side_heading.h"

#include <algorithm>
#include <string>

#include "grid/cell_grid.h"

using namespace corvanes;

RECT CUGSideHdg::CellRectangle(int row) const {
    const RowLayout& rows = state().rows;
    if (row < state().top_row || row >= rows.count()) {
        return {0, 0, 0, 0};
    }
    const int top = rows.distance(state().top_row, row, height());
    return top < height() ? RECT{0, top, width(), top + rows.height(row)} : RECT{0, 0, 0, 0};
}

// The text belongs to the first heading column; further ones show an empty face.
void CUGSideHdg::Paint(CDC& dc, const RECT& dirty) {
    const RowLayout& rows = state().rows;
    const SideHeadingLayout& side = state().side;
    int top = 0;
    for (int row = state().top_row; row < rows.count() && top < dirty.bottom; ++row) {
        const int bottom = top + rows.height(row);
        int left = 0;
        for (int column = 0; bottom > dirty.top && column < side.count(); ++column) {
            const RECT cell{left, top, left + side.width(column), bottom};
            const std::wstring number = column == 0 ? std::to_wstring(row + 1LL) : std::wstring();
            PaintHeadingCell(dc, cell, column == 0 ? -1 : -2, row, number.c_str(), false);
            left = cell.right;
        }
        top = bottom;
    }
    const RECT rest{dirty.left, std::max<LONG>(top, dirty.top), dirty.right, dirty.bottom};
    if (::IsRectEmpty(&rest) == 0) {
        dc.FillSolidRect(&rest, ::GetSysColor(COLOR_BTNFACE));
    }
}
