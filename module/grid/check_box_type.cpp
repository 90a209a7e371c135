#include "grid/check_box_type.h"

#include <algorithm>
#include <cwchar>

#include "grid/cell_grid.h"

using namespace corvanes;

namespace {

/// The width and the height of a box, in pixels of a device.
int box_size(const CDC& dc) {
    constexpr int usual = 13;
    return ::MulDiv(usual, dc.GetDeviceCaps(LOGPIXELSY), USER_DEFAULT_SCREEN_DPI);
}

bool ticked(const wchar_t* text) {
    return text != nullptr && std::wcscmp(text, L"1") == 0;
}

RECT box_in(const CDC& dc, const RECT& cell) {
    const int size = box_size(dc);
    const int left = cell.left + std::max<int>(0, (cell.right - cell.left - size) / 2);
    const int top = cell.top + std::max<int>(0, (cell.bottom - cell.top - size) / 2);
    return {left, top, std::min<int>(left + size, cell.right), std::min<int>(top + size, cell.bottom)};
}

void toggle(CellGrid& grid, const CellPlace& place) {
    const wchar_t* replacement = ticked(grid.GetCellText(place.column, place.row)) ? L"0" : L"1";
    grid.OfferCellText(place.column, place.row, replacement);
}

}  // namespace

void CUGCheckBoxType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const CellLook& look) {
    dc.FillSolidRect(&rect, look.background);
    RECT box = box_in(dc, rect);
    ::DrawFrameControl(dc.m_hDC, &box, DFC_BUTTON, DFCS_BUTTONCHECK | (ticked(cell.GetText()) ? DFCS_CHECKED : 0));
}

SIZE CUGCheckBoxType::BestSize(CDC& dc, const CUGCell&) const {
    return {box_size(dc), box_size(dc)};
}

bool CUGCheckBoxType::OnLeftClick(CellGrid& grid, const CellPlace& place, int updn, POINT point) {
    const CClientDC dc(&grid);
    const RECT box = box_in(dc, place.rect);
    if (::PtInRect(&box, point) == 0) {
        return false;
    }
    if (updn == 1) {
        toggle(grid, place);
    }
    return true;
}

bool CUGCheckBoxType::OnCharDown(CellGrid& grid, const CellPlace& place, UINT character) {
    if (character != L' ') {
        return false;
    }
    toggle(grid, place);
    return true;
}
