// CUGMultiFontType, a text whose runs have fonts and colours of their own, which the cell's label gives in the form
// that corvanes::runs_from_label reads.
#pragma once

#include "grid/control_type.h"

// A selected or disabled cell shows its text in the colour of such cells. A click on a run notifies with the run's
// text, F4 and Alt+Down with the whole text.
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
