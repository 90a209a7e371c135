// CUGTopHdg, the row of column headings: clicks, and dragging the columns' borders.
#pragma once

#include "grid/grid_pane.h"

class CUGTopHdg : public corvanes::GridPane {
  public:
    // The rectangle of the column's heading in pixels of this window; empty when the column is not visible.
    RECT CellRectangle(int column) const;
    // Does what a click on the column's heading does.
    void ClickColumn(int column);

  protected:
    void Paint(CDC& dc, const RECT& dirty) override;

    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    BOOL OnSetCursor(CWnd* window, UINT hit, UINT message);
    void OnCaptureChanged(CWnd* taker);
    void OnContextMenu(CWnd* window, CPoint point);
    LRESULT OnDoubleClick(WPARAM keys, LPARAM point);
    DECLARE_MESSAGE_MAP()

  private:
    int BorderAt(POINT point) const;
    void Notify(int column, int updn, POINT point);

    // The column whose right border is being dragged, and the one whose heading is held down; -1 for none.
    int sizing_ = -1;
    int pressed_ = -1;
    // How far from the border, in pixels, the pointer took hold of it.
    int grip_ = 0;
};
