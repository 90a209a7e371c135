// CUGAdvProgressType, a number on a gauge with a range, bands of colour, ticks and numbers. Its label may set "min",
// "max", "bands" (see corvanes::bands_from_label), and "ticks" and "labels": the distances of ticks and numbers.
#pragma once

#include "grid/control_type.h"

namespace corvanes {

enum AdvancedProgressOption : std::uint32_t { advanced_progress_hides_number = 1 };

}  // namespace corvanes

// A click and the space bar notify with the band that the value lies in.
class CUGAdvProgressType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Advanced Progress Type"; }
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_advanced_progress; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
    bool HoldsParts() const override { return false; }
    void Act(const Target& target, int part) override;
};
