// CUGEllipsisType, a text with a "…" button behind it, for what is chosen in a dialog.
#pragma once

#include "grid/strip_type.h"

// The button, F4 and Alt+Down notify.
class CUGEllipsisType : public corvanes::StripType {
  public:
    const wchar_t* GetName() const override { return L"Ellipsis Type"; }

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_ellipsis; }
    int StripWidth(const CUGCell& cell) const override;
    void DrawStrip(CDC& dc, const corvanes::ControlScene& scene, const corvanes::Box& strip,
                   const corvanes::CellLook& look) const override;
    int StripPartAt(const corvanes::ControlScene& scene, const corvanes::Box& strip, POINT point) const override;
};
