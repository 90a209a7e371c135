// CUGAutoFontType, a text in the largest size of its font that fits into the cell.
#pragma once

#include "grid/control_type.h"

// A click on the cell, F4 and Alt+Down notify.
class CUGAutoFontType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Auto Font Type"; }
    // Whether the text is too large for the cell even in the smallest size.
    bool CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const override;
    // The size that shows the text in the grid's own font.
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_auto_font; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
    bool TakesSpace() const override { return false; }
    bool HoldsParts() const override { return false; }
};
