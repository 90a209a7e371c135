// The windows inside the grid that show cells: the base of the painting area and of the two headings.
#pragma once

#include <afxwin.h>

#include "grid/cell_type.h"

namespace corvanes {

struct GridState;

// Paints through a bitmap, so that nothing flickers. Redrawing is only requested here and done by the next WM_PAINT. A
// request for what is due already costs next to nothing, which keeps filling a grid row by row cheap.
class GridPane : public CWnd {
  public:
    // With `double_clicks` the window is told of double clicks; otherwise the second click is one like the first.
    bool Create(CellGrid& grid, UINT id, bool double_clicks = false);
    void Redraw();
    void RedrawPart(const RECT& part);
    // Moves the window to a rectangle, and hides it when that is empty.
    void Place(const RECT& place);
    int width() const { return place_.right - place_.left; }
    int height() const { return place_.bottom - place_.top; }

  protected:
    CellGrid& grid() const { return *grid_; }
    GridState& state() const;
    // Paints at least the part of the window inside `dirty`; the caller clips.
    virtual void Paint(CDC& dc, const RECT& dirty) = 0;
    // Called when the contents have changed, before they are painted again.
    virtual void OnContentChanged() {}
    // Fills `cell` with a heading cell's raised or pressed face and draws the text at (column, row) over it.
    void PaintHeadingCell(CDC& dc, const RECT& cell, int column, int row, const wchar_t* text_if_none, bool pressed);

    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    // Passes the wheel on to the grid, whichever of its windows the pointer is over.
    LRESULT OnWheel(WPARAM turn, LPARAM point);
    DECLARE_MESSAGE_MAP()

  private:
    CellGrid* grid_ = nullptr;
    RECT place_{0, 0, 0, 0};
    // The whole window is already due to be painted.
    bool redraw_due_ = false;
    CDC buffer_;
    CBitmap bitmap_;
    SIZE bitmap_size_{0, 0};
    void PrepareBuffer(CDC& screen);
};

}  // namespace corvanes
