// LayerGrid, the grid of the Layers dialog: a row for each layer of the drawing, with boxes that switch it.
#pragma once

#include <dbsymtb.h>

#include <vector>

#include "common/sorting_grid.h"

class LayerGrid : public SortingGrid {
  public:
    explicit LayerGrid(corvanes::GridOwner* dialog);

    /// Fills the grid with the layers of the working drawing, in its order.
    void FillLayers();

    void OnGridSetup() override;
    void OnGridHeadingClick(int column, long row, int updn, RECT* rect, POINT* point, int processed) override;
    /// Refuses: no cell is typed into.
    int OnGridEditStart(int, long, CWnd**) override { return 0; }
    int OnGridEditVerify(int column, long row, CWnd* edit, LPCWSTR text) override;
    /// Switches the layer in the drawing.
    int OnGridEditFinish(int column, long row, CWnd* edit, LPCWSTR text, BOOL cancelled) override;
    bool GoesToTyped() const override { return true; }

  private:
    void AppendLayer(AcDbObjectId id);
};
