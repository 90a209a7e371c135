#include "grid/cell_type.h"

void CUGCellType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const corvanes::CellLook& look) {
    corvanes::DrawCellText(dc, rect, cell.GetText(), look);
}

RECT CUGCellType::TextPlace(const RECT& cell) const {
    return cell;
}

bool CUGCellType::CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const {
    return !corvanes::CellTextFits(dc, TextPlace(rect), cell.GetText());
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
