// CUGGrid, the part of the grid window that shows the data cells and takes the keyboard.
#pragma once

#include <optional>

#include "grid/cell_change.h"
#include "grid/grid_pane.h"
#include "grid/hint_window.h"
#include "grid/scroll_bars.h"

class CUGGrid : public corvanes::GridPane {
  public:
    // The cell's rectangle in pixels of this window, without the grid lines. Its width is that of the visible part, so
    // that texts and editors keep to it; its height may reach beyond the window's edge. Empty when no part of the cell
    // is visible.
    RECT CellRectangle(int column, int row) const;
    // The column and the row at a point; -1 for one that the point misses.
    void CellAt(POINT point, int* column, int* row) const;
    void RedrawCell(int column, int row);
    void RedrawRow(int row);

  protected:
    void Paint(CDC& dc, const RECT& dirty) override;
    // A hint that is open would show the cell's former text.
    void OnContentChanged() override { hint_.Hide(); }

    void OnLButtonDown(UINT keys, CPoint point);
    void OnLButtonUp(UINT keys, CPoint point);
    void OnMouseMove(UINT keys, CPoint point);
    LRESULT OnRightDown(WPARAM keys, LPARAM point);
    void OnContextMenu(CWnd* window, CPoint point);
    void OnTimer(UINT_PTR timer);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnSysKeyDown(UINT key, UINT repeat, UINT flags);
    void OnChar(UINT character, UINT repeat, UINT flags);
    void OnSetFocus(CWnd* former);
    void OnKillFocus(CWnd* next);
    void OnCaptureChanged(CWnd* taker);
    UINT OnGetDlgCode();
    LRESULT OnKeyUp(WPARAM key, LPARAM flags);
    LRESULT OnCellWheel(WPARAM turn, LPARAM point);
    void OnDestroy();
    LRESULT OnMouseHover(WPARAM keys, LPARAM point);
    LRESULT OnMouseLeave(WPARAM unused, LPARAM unused_too);
    DECLARE_MESSAGE_MAP()

  private:
    void PaintRow(CDC& dc, const RECT& dirty, int row, int top, int height);
    void PaintCell(CDC& dc, int column, int row, const RECT& inside);
    void MarkCurrentCell(CDC& dc, const RECT& cell);
    // The cell at a point, with an empty rectangle where there is none.
    corvanes::CellPlace PlaceAt(POINT point) const;
    // With `in_cell` the button went down in that cell too, and the cell's type may act on it.
    void NotifyClick(const corvanes::CellPlace& place, int updn, POINT point, bool in_cell);
    corvanes::CellPlace CurrentPlace() const;
    // The place where the held cell is now.
    corvanes::CellPlace PlaceOf(const corvanes::CellHold& hold) const;
    void WaitToHoldOn();
    // Lets the held control repeat its step.
    void HoldOn();
    void ReleaseHold(const corvanes::CellHold& hold, POINT point);
    // Lets the type of the current cell act on a wheel above it. False leaves the wheel to the grid.
    bool TurnCell(int turn, POINT point);
    void Navigate(UINT key);
    void WaitForHint(POINT point);
    // Stretches the selection to a point; while the point is outside, the cells on that side are scrolled in.
    void DragTo(POINT point);
    corvanes::CellAddress CellTowards(POINT point) const;

    static constexpr UINT_PTR drag_timer = 1;
    static constexpr UINT_PTR status_timer = 2;
    static constexpr UINT_PTR hold_timer = 3;

    // Where the left button went down, while it is held. Showing that cell whole may have moved another one there.
    std::optional<corvanes::CellPlace> pressed_;
    POINT dragged_to_{0, 0};
    corvanes::WheelSum cell_wheel_;
    corvanes::HintWindow hint_;
    int hinted_column_ = -1;
    int hinted_row_ = -1;
};
