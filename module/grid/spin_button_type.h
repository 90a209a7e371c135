// CUGSpinButtonType, a number with buttons that step it up and down. Its label may set "min", "max", "step" and "wrap".
#pragma once

#include "grid/strip_type.h"

// The buttons repeat while they are held; the arrows up and down and the wheel over the current cell step as well. Each
// step is an edit that the grid's owner may refuse. A disabled cell or a key with Ctrl leaves the arrows to the grid.
class CUGSpinButtonType : public corvanes::StripType {
  public:
    const wchar_t* GetName() const override { return L"Spin Button Type"; }
    bool OnHoldOn(corvanes::CellGrid& grid, const corvanes::CellPlace& place) override;
    void OnRelease(corvanes::CellGrid&, const corvanes::CellPlace&, const corvanes::CellHold&) override {}

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_spin; }
    int StripWidth(const CUGCell& cell) const override;
    void DrawStrip(CDC& dc, const corvanes::ControlScene& scene, const corvanes::Box& strip,
                   const corvanes::CellLook& look) const override;
    int StripPartAt(const corvanes::ControlScene& scene, const corvanes::Box& strip, POINT point) const override;
    int KeyPart(const corvanes::ControlScene&) const override { return no_part; }
    void OnPress(const Target& target, int part, POINT point) override;
    bool OnControlKey(const Target& target, UINT key) override;
    bool OnControlWheel(const Target& target, int notches) override;

  private:
    void Step(const Target& target, int steps) const;
};
