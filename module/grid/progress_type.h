// CUGProgressType, the cell's number as a bar of that many percent, with the number over it.
#pragma once

#include "grid/control_type.h"

namespace corvanes {

enum ProgressOption : std::uint32_t { progress_hides_number = 1 };

}  // namespace corvanes

// An empty cell has no bar. A click and the space bar notify.
class CUGProgressType : public corvanes::ControlType {
  public:
    const wchar_t* GetName() const override { return L"Progress Type"; }
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_progress; }
    void Draw(CDC& dc, const corvanes::ControlScene& scene, const corvanes::CellLook& look) const override;
    int PartAt(CDC& dc, const corvanes::ControlScene& scene, POINT point) const override;
    bool HoldsParts() const override { return false; }
};
