// CUGSideHdg, the column of row headings: the text at column -1, or the row's number.
#pragma once

#include "grid/grid_pane.h"

class CUGSideHdg : public corvanes::GridPane {
  public:
    // The rectangle of the row's heading in pixels of this window; empty when the row is not visible.
    RECT CellRectangle(int row) const;

  protected:
    void Paint(CDC& dc, const RECT& dirty) override;
};
