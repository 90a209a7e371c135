// A cell whose text can be chosen from a list; the items are the lines of the cell's label.
#pragma once

#include "grid/cell_type.h"

class CUGDropListType : public CUGCellType {
  public:
    // The strip at the cell's right edge that belongs to the drop button, in pixels.
    static constexpr int button_strip = 20;

    const wchar_t* GetName() const override { return L"Standard DropList"; }
    void OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const corvanes::CellLook& look) override;
    RECT TextPlace(const RECT& rect, const CUGCell& cell) const override;
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;
    // A click on the button, F4 and Alt+Down open the list; a cell whose label has no lines has nothing to open.
    bool OnLeftClick(corvanes::CellGrid& grid, const corvanes::CellPlace& place, int updn, POINT point) override;
    bool OnKeyDown(corvanes::CellGrid& grid, const corvanes::CellPlace& place, UINT key) override;
};
