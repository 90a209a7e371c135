// CUGRadioType, a choice among the lines of the cell's label, all of which the cell shows; its text is the chosen line.
#pragma once

#include "grid/control_type.h"

// The lines stand below each other in as few columns as the cell's height allows. Choosing one is an edit that the
// grid's owner may refuse. An arrow key that leads to another line chooses it; the other arrows, and arrows with Ctrl,
// go to the grid.
class CUGRadioType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Radio Type"; }
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_radio; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
    int KeyPart(const corvanes::ControlScene& scene) const override;
    void Act(const Target& target, int part) override;
    bool OnControlKey(const Target& target, UINT key) override;
};
