// CUGCtrl, the spreadsheet-like grid window: what its owner calls. Derive from it to be told what happens in it.
#pragma once

#include <afxwin.h>

#include "grid/cell_grid.h"
#include "grid/drop_list.h"
#include "grid/edit_session.h"
#include "grid/grid_commands.h"
#include "grid/masked_edit.h"
#include "grid/painting_area.h"
#include "grid/scroll_bars.h"
#include "grid/side_heading.h"
#include "grid/sort_arrow_type.h"
#include "grid/standard_cell_types.h"
#include "grid/top_heading.h"

// Data columns and rows count from 0; row -1 is the top heading and column -1 the side heading. Operations return 0, or
// 1 for a refused argument, and then change nothing. Nothing is painted at once: redrawing and the scroll bars are
// brought up to date together when messages are next processed, so filling row by row costs no painting.
//
// While there are cells one of them is the current one; when rows or columns go away under it or are hidden, or the
// first ones come, the nearest takes its place and the change is notified. When rows come or go above it, it and the
// selection stay with their rows.
class CUGCtrl : public corvanes::CellGrid {
  public:
    CUGCtrl();
    ~CUGCtrl() override;

    // Creation. Both functions call OnGridSetup at their end, and fail when the window already exists.
    BOOL CreateGrid(DWORD style, const RECT& place, CWnd* parent, UINT id);
    // Puts the grid in the place of the dialog's control `id`: same rectangle, identifier, edge and tab order. That
    // control is destroyed.
    BOOL AttachGrid(CWnd* parent, UINT id);

    // Columns and rows.
    int SetColumnCount(int count, BOOL redraw = TRUE);
    int SetRowCount(int count, BOOL redraw = TRUE) override;
    int SetColumnWidth(int column, int width) override;
    int GetColumnWidth(int column) const;
    // Hides a column, or shows it again as wide as it was; its width and cells are kept. Refused for the last column
    // that is shown.
    int ShowColumn(int column, BOOL show) override;
    // Whether the column's texts stand at the right edges of its cells; the heading's stays where it is.
    int AlignColumnRight(int column, BOOL right);
    int SetDefaultRowHeight(int height);
    int GetDefaultRowHeight() const { return state_.rows.default_height(); }
    // Rows have heights of their own only in grids of up to 64000 rows.
    int SetRowHeight(int row, int height);
    int GetRowHeight(int row) const;
    int SetTopHeadingHeight(int height);
    int SetSideHeadingWidth(int width);
    int GetSideHeadingWidth() const { return state_.side.total_width(); }
    // An error of the data source is passed on. Whatever moves or removes rows closes an open editor without storing
    // its text.
    int InsertRow(int row);
    int AppendRow();
    int DeleteRow(int row);
    // Sorts by OnGridSortCompare with corvanes::SortFlag flags; equal rows keep their order. The current cell goes with
    // its row, out of sight perhaps; the selection is given up. Changes of cells and rows are refused meanwhile.
    int SortBy(int column, int flags);

    // Movement and selection. These functions return 2 when OnGridCanMove refuses. The Go operations leave the
    // selection alone and scroll the cell into view; the Move operations clear the selection first, unless Shift (which
    // stretches it) or Ctrl is held, and do nothing when they lead to the current cell.
    int GetCurrentColumn() const { return state_.current_column; }
    int GetCurrentRow() const { return state_.current_row; }
    int GetPreviousRow() const { return state_.previous_row; }
    int GotoCell(int column, int row) override;
    int GotoRow(int row) { return GotoCell(state_.current_column, row); }
    // See corvanes::RowMovement for the directions.
    int MoveCurrentRow(int direction) override;
    int MoveCurrentColumn(int steps) override;
    int MoveCurrentCell(int column, int row) override;
    int SelectCell(int column, int row) override;
    int ClearSelection() override;
    bool IsSelected(int column, int row) const { return state_.selection.contains(column, row); }

    // Editing. These functions return 1 when OnGridEditStart refuses or the editor cannot be used.
    int StartEdit(int column, int row, UINT key);
    int StartEdit() { return StartEdit(0); }
    int StartEdit(UINT key) { return StartEdit(state_.current_column, state_.current_row, key); }
    bool IsEditing() const override { return edit_.active(); }
    // Ends an open edit as if the focus had left it. False when that is refused and the edit goes on.
    bool FinishEdit() override;

    // Redrawing and scrolling.
    int RedrawCell(int column, int row) override;
    int RedrawRow(int row);
    void RedrawAll() override;
    // At first 1. While it is 0 nothing is repainted; setting it to 1 again repaints the grid.
    int SetDisplayFlag(int flag);
    int GetDisplayFlag() const { return state_.display_flag; }
    int GetTopRow() const { return state_.top_row; }
    void SetTopRow(int row);
    void SetScrollX(int x);
    // By the turn of a wheel, down or to the right for one below or above 0 as the system counts; parts of a notch add
    // up.
    void ScrollByWheel(int turn);
    void ScrollSidewaysByWheel(int turn);
    // Shows the vertical scroll bar always, so that the cells' width does not depend on the number of rows.
    void KeepVerticalBar();
    int EnsureVisible(int column, int row);
    int GetFontHeight() const;

    CUGGrid& GetGrid() override { return cells_; }
    CUGTopHdg& GetTopHeading() override { return top_heading_; }
    corvanes::CommandTarget& Commands() override { return commands_; }
    CUGSideHdg& GetSideHeading() { return side_heading_; }

    void UpdateLayout() override;
    void ClickCell(int column, int row, bool stretch, bool add) override;
    void OpenDropList(int column, int row) override;
    bool OfferCellText(int column, int row, LPCWSTR text) override;
    bool TakeFocus(CWnd& part) override;
    void GoOnFromEdit(UINT key) override;
    void RefocusEditor() override;
    void PointInEditor(POINT point, const RECT& cell) override { edit_.point_at(point, cell); }

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    BOOL OnCommand(WPARAM code, LPARAM control) override;
    void OnSize(UINT kind, int width, int height);
    void OnPaint();
    BOOL OnEraseBkgnd(CDC* dc);
    void OnSetFocus(CWnd* former);
    void OnHScroll(UINT code, UINT position, CScrollBar* bar);
    void OnVScroll(UINT code, UINT position, CScrollBar* bar);
    BOOL OnMouseWheel(UINT keys, short turn, CPoint point);
    LRESULT OnMouseSidewaysWheel(WPARAM turn, LPARAM point);
    void OnKeyDown(UINT key, UINT repeat, UINT flags);
    void OnDestroy();
    LRESULT OnSetFontMessage(WPARAM font, LPARAM redraw);
    LRESULT OnGetFontMessage(WPARAM unused, LPARAM unused_too);
    LRESULT OnUpdateLayout(WPARAM unused, LPARAM unused_too);
    LRESULT OnRefocusEditor(WPARAM unused, LPARAM unused_too);
    DECLARE_MESSAGE_MAP()

  private:
    bool CreateWindows(DWORD style, DWORD edge, const RECT& place, CWnd* parent, UINT id);
    void LayoutChanged();
    int ChangeRowCount(int count, BOOL redraw);
    LRESULT AnswerCellQuery(LPARAM query);
    LRESULT AnswerPageQuery(LPARAM query);
    void KeepCurrentCellInside();
    void MakeCurrent(int column, int row);
    int ColumnAfter(int steps) const;

    corvanes::StandardCellTypes standard_types_;
    CUGGrid cells_;
    CUGTopHdg top_heading_;
    CUGSideHdg side_heading_;
    CUGMaskedEdit default_editor_;
    corvanes::DropList drop_list_;
    corvanes::EditSession edit_;
    corvanes::GridCommands commands_;
    corvanes::WheelSum wheel_rows_;
    corvanes::WheelSum wheel_columns_;
    bool layout_due_ = false;
    bool laying_out_ = false;
};
