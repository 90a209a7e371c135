#include "grid/drop_list_type.h"

#include <algorithm>

#include "grid/cell_grid.h"

using namespace corvanes;

namespace {

RECT strip_of(const RECT& cell) {
    return {std::max(cell.left, cell.right - CUGDropListType::button_strip), cell.top, cell.right, cell.bottom};
}

}  // namespace

void CUGDropListType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const CellLook& look) {
    RECT button = strip_of(rect);
    DrawCellText(dc, TextPlace(rect, cell), cell.GetText(), look);
    dc.FillSolidRect(&button, look.background);
    ::InflateRect(&button, -1, -1);
    ::DrawFrameControl(dc.m_hDC, &button, DFC_SCROLL, DFCS_SCROLLCOMBOBOX);
}

RECT CUGDropListType::TextPlace(const RECT& rect, const CUGCell&) const {
    return {rect.left, rect.top, strip_of(rect).left, rect.bottom};
}

SIZE CUGDropListType::BestSize(CDC& dc, const CUGCell& cell) const {
    const SIZE text = CellTextSize(dc, cell.GetText());
    return {text.cx + button_strip, text.cy};
}

bool CUGDropListType::OnLeftClick(CellGrid& grid, const CellPlace& place, int updn, POINT point) {
    const RECT strip = strip_of(place.rect);
    if (::PtInRect(&strip, point) == 0) {
        return false;
    }
    // The list opens when the button comes up: an open list would take the release for a choice.
    if (updn == 0) {
        grid.OpenDropList(place.column, place.row);
    }
    return true;
}

bool CUGDropListType::OnKeyDown(CellGrid& grid, const CellPlace& place, UINT key) {
    if (!IsOpenKey(key)) {
        return false;
    }
    grid.OpenDropList(place.column, place.row);
    return true;
}
