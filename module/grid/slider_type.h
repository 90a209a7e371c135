// CUGSliderType, a number as a thumb on a groove. Its label may set "min", "max" and "step".
#pragma once

#include "grid/control_type.h"

namespace corvanes {

// The number stands beside the groove.
enum SliderOption : std::uint32_t { slider_shows_number = 1 };

}  // namespace corvanes

// Dragging shows the new value and stores it on release, as one edit; Escape drops it. Left and Right step, Page Up and
// Page Down go on by a tenth of the range, Home and End to its limits; the wheel over the current cell steps.
class CUGSliderType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Slider Type"; }
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;
    void OnDrag(corvanes::CellGrid& grid, const corvanes::CellPlace& place, POINT point) override;
    void OnRelease(corvanes::CellGrid& grid, const corvanes::CellPlace& place, const corvanes::CellHold& hold) override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_slider; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
    int KeyPart(const corvanes::ControlScene&) const override { return no_part; }
    bool TakesSpace() const override { return false; }
    void OnPress(const Target& target, int part, POINT point) override;
    bool OnControlKey(const Target& target, UINT key) override;
    bool OnControlWheel(const Target& target, int notches) override;

  private:
    // Always returns true: the key or the wheel was meant for the slider, even when the value stays.
    bool StepBy(const Target& target, int steps) const;
};
