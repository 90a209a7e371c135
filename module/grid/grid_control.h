// CUGCtrl, the spreadsheet-like grid window: what its owner calls. Derive from it to be told what happens in it.
#pragma once

#include <afxwin.h>

#include <memory>
#include <vector>

#include "grid/cell_memory.h"
#include "grid/check_box_type.h"
#include "grid/drop_list.h"
#include "grid/drop_list_type.h"
#include "grid/edit_session.h"
#include "grid/grid_notifications.h"
#include "grid/grid_state.h"
#include "grid/masked_edit.h"
#include "grid/painting_area.h"
#include "grid/scroll_bars.h"
#include "grid/side_heading.h"
#include "grid/sort_arrow_type.h"
#include "grid/top_heading.h"

// Data columns and rows count from 0; row -1 is the top heading and column -1 the side heading. Operations return 0, or
// 1 for a refused argument, and then change nothing. Nothing is painted at once: redrawing and the scroll bars are
// brought up to date together when messages are next processed, so filling row by row costs no painting.
//
// While there are cells one of them is the current one; when rows or columns go away under it or are hidden, or the
// first ones come, the nearest takes its place and the change is notified. When rows come or go above it, it and the
// selection stay with their rows.
class CUGCtrl : public CWnd, public CUGNotifications {
  public:
    CUGCtrl();
    ~CUGCtrl() override;

    // Creation. Both end with OnGridSetup, and fail when the window already exists.
    BOOL CreateGrid(DWORD style, const RECT& place, CWnd* parent, UINT id);
    // Puts the grid in the place of the dialog's control `id`: same rectangle, identifier, edge and tab order. That
    // control is destroyed.
    BOOL AttachGrid(CWnd* parent, UINT id);

    // Columns and rows.
    int SetColumnCount(int count, BOOL redraw = TRUE);
    int GetColumnCount() const { return state_.columns.count(); }
    int SetRowCount(int count, BOOL redraw = TRUE);
    int GetRowCount() const { return state_.rows.count(); }
    int SetColumnWidth(int column, int width);
    int GetColumnWidth(int column) const;
    // Whether the column's texts stand at the right edges of its cells; the heading's stays where it is.
    int AlignColumnRight(int column, BOOL right);
    int SetDefaultRowHeight(int height);
    int GetDefaultRowHeight() const { return state_.rows.default_height(); }
    // Single heights are kept up to 64000 rows only.
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

    // Cells.
    int GetCell(int column, int row, CUGCell* cell);
    int SetCell(int column, int row, const CUGCell* cell);
    int SetCellText(int column, int row, LPCWSTR text);
    // Null when the cell has no text; valid until the cell changes.
    LPCWSTR GetCellText(int column, int row);
    int GetCellText(int column, int row, CString& text);
    int SetCellLabel(int column, int row, LPCWSTR text);
    int SetCellTypeIndex(int column, int row, int index);
    int SetCellTypeOptions(int column, int row, DWORD bits);
    // The grid does not own the type, which must outlive it. Its index, also when it was there already; -1 for null or
    // a full table.
    int AddCellType(CUGCellType* type);
    // An index that is not in the table gives the normal type.
    CUGCellType& CellType(int index);
    CUGCellType& CellTypeAt(int column, int row);

    // Movement and selection. 2 when OnGridCanMove refuses. The Go operations leave the selection alone and scroll the
    // cell into view; the Move operations clear the selection first, unless Shift (which stretches it) or Ctrl is held,
    // and do nothing when they lead to the current cell.
    int GetCurrentColumn() const { return state_.current_column; }
    int GetCurrentRow() const { return state_.current_row; }
    int GetPreviousRow() const { return state_.previous_row; }
    int GotoCell(int column, int row);
    int GotoRow(int row) { return GotoCell(state_.current_column, row); }
    // See corvanes::RowMovement for the directions.
    int MoveCurrentRow(int direction);
    int MoveCurrentColumn(int steps);
    int MoveCurrentCell(int column, int row);
    int SelectCell(int column, int row);
    int ClearSelection();
    bool IsSelected(int column, int row) const { return state_.selection.contains(column, row); }

    // Editing. 1 when OnGridEditStart refuses or the editor cannot be used.
    int StartEdit(int column, int row, UINT key);
    int StartEdit() { return StartEdit(0); }
    int StartEdit(UINT key) { return StartEdit(state_.current_column, state_.current_row, key); }
    bool IsEditing() const { return edit_.active(); }
    // Ends an open edit as if the focus had left it. False when that is refused and the edit goes on.
    bool FinishEdit();
    // Gives the focus to a part of the grid that was clicked, which ends an open edit. False when that is refused.
    bool TakeFocus(CWnd& part);
    // Goes on from an edit that Tab or Return ended: to the next column or row, with Shift to the one before.
    void GoOnFromEdit(UINT key);
    // Whether Return in a cell moves to the next row, instead of pressing the dialog's default button.
    virtual bool TakesReturn() const { return false; }

    // Redrawing and scrolling.
    int RedrawCell(int column, int row);
    int RedrawRow(int row);
    void RedrawAll();
    // 1 to begin with. While it is 0 nothing asks for repainting; setting it again repaints the grid.
    int SetDisplayFlag(int flag);
    int GetDisplayFlag() const { return state_.display_flag; }
    int GetTopRow() const { return state_.top_row; }
    void SetTopRow(int row);
    void SetScrollX(int x);
    // By the turn of a wheel, down or to the right for one below or above 0 as the system counts; parts of a notch add
    // up.
    void ScrollByWheel(int turn);
    void ScrollSidewaysByWheel(int turn);
    // Keeps the place of the vertical scroll bar from the start, so that the cells' width does not depend on the rows.
    void KeepVerticalBar();
    int EnsureVisible(int column, int row);
    // The font of all cells; the dialog's font after AttachGrid. Also set by WM_SETFONT.
    HFONT GetGridFont() const { return font_; }
    int GetFontHeight() const;

    // For the grid's own windows, cell types and editors.
    corvanes::GridState& state() { return state_; }
    CUGGrid& GetGrid() { return cells_; }
    CUGTopHdg& GetTopHeading() { return top_heading_; }
    CUGSideHdg& GetSideHeading() { return side_heading_; }
    void UpdateLayout();
    void ClickCell(int column, int row, bool stretch, bool add);
    void OpenDropList(int column, int row);
    // Stores a text that the user chose without an editor; the verification and finish notifications may refuse it.
    bool OfferCellText(int column, int row, LPCWSTR text);
    void RefocusEditor();
    // Where a click into `cell` of the painting area opened an editor: its caret goes there.
    void PointInEditor(POINT point, const RECT& cell) { edit_.point_at(point, cell); }

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
    bool Addresses(int column, int row) const;
    template <class Change>
    int ChangeCell(int column, int row, Change change);
    void LayoutChanged();
    int ChangeRowCount(int count, BOOL redraw);
    LRESULT AnswerCellQuery(LPARAM query);
    void KeepCurrentCellInside();
    void MakeCurrent(int column, int row);
    int ColumnAfter(int steps) const;

    corvanes::GridState state_;
    CUGMem memory_;
    CUGDataSource* source_ = &memory_;
    CUGCellType normal_type_;
    CUGDropListType drop_list_type_;
    CUGCheckBoxType check_box_type_;
    std::vector<CUGCellType*> types_;
    CUGGrid cells_;
    CUGTopHdg top_heading_;
    CUGSideHdg side_heading_;
    CUGMaskedEdit default_editor_;
    corvanes::DropList drop_list_;
    corvanes::EditSession edit_;
    HFONT font_ = nullptr;  // someone else's
    corvanes::WheelSum wheel_rows_;
    corvanes::WheelSum wheel_columns_;
    bool layout_due_ = false;
    bool laying_out_ = false;
};
