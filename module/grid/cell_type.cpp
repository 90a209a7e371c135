#include "grid/cell_type.h"

void CUGCellType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const corvanes::CellLook& look) {
    corvanes::DrawCellText(dc, rect, cell.GetText(), look);
}

RECT CUGCellType::TextPlace(const RECT& rect, const CUGCell&) const {
    return rect;
}

bool CUGCellType::CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const {
    return !corvanes::CellTextFits(dc, TextPlace(rect, cell), cell.GetText());
}

SIZE CUGCellType::BestSize(CDC& dc, const CUGCell& cell) const {
    return corvanes::CellTextSize(dc, cell.GetText());
}

bool CUGCellType::OnLeftClick(corvanes::CellGrid&, const corvanes::CellPlace&, int, POINT) {
    return false;
}

bool CUGCellType::OnKeyDown(corvanes::CellGrid&, const corvanes::CellPlace&, UINT) {
    return false;
}

bool CUGCellType::OnCharDown(corvanes::CellGrid&, const corvanes::CellPlace&, UINT) {
    return false;
}

bool CUGCellType::OnWheel(corvanes::CellGrid&, const corvanes::CellPlace&, int) {
    return false;
}

void CUGCellType::OnDrag(corvanes::CellGrid&, const corvanes::CellPlace&, POINT) {}

bool CUGCellType::OnHoldOn(corvanes::CellGrid&, const corvanes::CellPlace&) {
    return false;
}

void CUGCellType::OnRelease(corvanes::CellGrid&, const corvanes::CellPlace&, const corvanes::CellHold&) {}

bool CUGCellType::IsOpenKey(UINT key) {
    const bool alt = ::GetKeyState(VK_MENU) < 0;
    return alt ? key == VK_DOWN : key == VK_F4;
}
