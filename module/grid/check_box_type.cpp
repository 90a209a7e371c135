#include "grid/check_box_type.h"

#include <algorithm>
#include <cwchar>

#include "grid/cell_grid.h"

using namespace corvanes;

namespace {

constexpr int box_size = 13;

bool ticked(const wchar_t* text) {
    return text != nullptr && std::wcscmp(text, L"1") == 0;
}

RECT box_in(const RECT& cell) {
    const int left = cell.left + std::max<int>(0, (cell.right - cell.left - box_size) / 2);
    const int top = cell.top + std::max<int>(0, (cell.bottom - cell.top - box_size) / 2);
    return {left, top, std::min<int>(left + box_size, cell.right), std::min<int>(top + box_size, cell.bottom)};
}

void toggle(CellGrid& grid, const CellPlace& place) {
    const wchar_t* replacement = ticked(grid.GetCellText(place.column, place.row)) ? L"0" : L"1";
    grid.OfferCellText(place.column, place.row, replacement);
}

}  // namespace

void CUGCheckBoxType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const CellLook& look) {
    dc.FillSolidRect(&rect, look.background);
    RECT box = box_in(rect);
    ::DrawFrameControl(dc.m_hDC, &box, DFC_BUTTON, DFCS_BUTTONCHECK | (ticked(cell.GetText()) ? DFCS_CHECKED : 0));
}

SIZE CUGCheckBoxType::BestSize(CDC&, const CUGCell&) const {
    return {box_size, box_size};
}

bool CUGCheckBoxType::OnLeftClick(CellGrid& grid, const CellPlace& place, int updn, POINT point) {
    const RECT box = box_in(place.rect);
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
