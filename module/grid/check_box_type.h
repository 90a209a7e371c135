// A cell with a check box; its text is "1" when it is ticked.
#pragma once

#include "grid/cell_type.h"

class CUGCheckBoxType : public CUGCellType {
  public:
    const wchar_t* GetName() const override { return L"Standard CheckBox Type"; }
    void OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const corvanes::CellLook& look) override;
    bool CutsText(CDC&, const RECT&, const CUGCell&) const override { return false; }
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;
    // A click on the box, and the space bar, tick or clear it. That is an edit, which the grid's owner may refuse.
    bool OnLeftClick(corvanes::CellGrid& grid, const corvanes::CellPlace& place, int updn, POINT point) override;
    bool OnCharDown(corvanes::CellGrid& grid, const corvanes::CellPlace& place, UINT character) override;
};
