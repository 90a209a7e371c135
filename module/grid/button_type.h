// CUGButtonType, a push button with the cell's text as its caption. A click on it and the space bar notify.
#pragma once

#include "grid/control_type.h"

class CUGButtonType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Button Type"; }
    RECT TextPlace(const RECT& rect, const CUGCell& cell) const override;
    bool CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const override;
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_button; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
};
