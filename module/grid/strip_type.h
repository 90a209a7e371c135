// StripType, the base of the types whose cells have a text to edit and, in a strip at the cell's end, a part to press.
#pragma once

#include "grid/control_type.h"

namespace corvanes {

class StripType : public ControlType {
  public:
    RECT TextPlace(const RECT& rect, const CUGCell& cell) const override;
    bool CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const override;
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;

  protected:
    // The strip's width in pixels; 0 for a cell that has no such part.
    virtual int StripWidth(const CUGCell& cell) const = 0;
    // Draws the part into its strip, which is given in the window's coordinates.
    virtual void DrawStrip(CDC& dc, const ControlScene& scene, const Box& strip, const CellLook& look) const = 0;
    // The part at a point that lies in the strip, in the layout's coordinates.
    virtual int StripPartAt(const ControlScene& scene, const Box& strip, POINT point) const = 0;

    void Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const final;
    int PartAt(CDC& dc, const ControlScene& scene, POINT point) const final;
    bool TakesSpace() const final { return false; }
};

}  // namespace corvanes
