// StripType, the base of the cells with a text to edit and a part of their own at the cell's end.
#pragma once

#include "grid/control_type.h"

namespace corvanes {

class StripType : public ControlType {
  public:
    RECT TextPlace(const RECT& rect, const CUGCell& cell) const override;
    bool CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const override;
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    // The strip's width in pixels; 0 for a cell without the part.
    virtual int StripWidth(const CUGCell& cell) const = 0;
    // Draws the part into its strip, which is where the window has it.
    virtual void DrawStrip(CDC& dc, const ControlScene& scene, const Box& strip, const CellLook& look) const = 0;
    // The part at a point of the layout that lies in the strip.
    virtual int StripPartAt(const ControlScene& scene, const Box& strip, POINT point) const = 0;

    void Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const final;
    int PartAt(CDC& dc, const ControlScene& scene, POINT point) const final;
    bool TakesSpace() const final { return false; }
};

}  // namespace corvanes
