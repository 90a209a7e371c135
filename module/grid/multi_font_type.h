// CUGMultiFontType, a text whose parts have fonts and colours of their own: the cell's label tells them, as
// corvanes::runs_from_label reads it.
#pragma once

#include "grid/control_type.h"

// On a selected or disabled cell the colours give way to the cell's. A click on a run notifies with its text, F4 and
// Alt+Down with the whole one.
class CUGMultiFontType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Multi Font Type"; }
    bool CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const override;
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_multi_font; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
    int KeyPart(const corvanes::ControlScene&) const override { return all_parts; }
    bool TakesSpace() const override { return false; }
    bool HoldsParts() const override { return false; }
    void Act(const Target& target, int part) override;
};
