// CUGArrowType, a text with an arrow beside it: one of the option bits of corvanes::ArrowDirection says where it
// points.
#pragma once

#include "grid/strip_type.h"

// Without a direction it looks like a normal cell. Pressing the arrow, F4 and Alt+Down notify.
class CUGArrowType : public corvanes::StripType {
  public:
    const wchar_t* GetName() const override { return L"Arrow Type"; }

  protected:
    corvanes::CellNotice notice() const override { return corvanes::notice_arrow; }
    int StripWidth(const CUGCell& cell) const override;
    void DrawStrip(CDC& dc, const corvanes::ControlScene& scene, const corvanes::Box& strip,
                   const corvanes::CellLook& look) const override;
    int StripPartAt(const corvanes::ControlScene& scene, const corvanes::Box& strip, POINT point) const override;
    int KeyPart(const corvanes::ControlScene& scene) const override;
};
