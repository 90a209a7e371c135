#include "grid/cell_type.h"

void CUGCellType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const corvanes::CellLook& look) {
    corvanes::DrawCellText(dc, rect, cell.GetText(), look);
}

bool CUGCellType::CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const {
    return !corvanes::CellTextFits(dc, rect, cell.GetText());
}

bool CUGCellType::OnLeftClick(CUGCtrl&, const corvanes::CellPlace&, int, POINT) {
    return false;
}

bool CUGCellType::OnKeyDown(CUGCtrl&, const corvanes::CellPlace&, UINT) {
    return false;
}

bool CUGCellType::OnCharDown(CUGCtrl&, const corvanes::CellPlace&, UINT) {
    return false;
}
