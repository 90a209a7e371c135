// CellGrid, the grid window as its inner windows, cell types and editor know it.
#pragma once

#include <afxwin.h>

#include <optional>
#include <vector>

#include "grid/cell_hold.h"
#include "grid/cell_memory.h"
#include "grid/cell_type.h"
#include "grid/grid_notifications.h"
#include "grid/grid_state.h"

class CUGGrid;
class CUGTopHdg;

namespace corvanes {

class CommandTarget;

// Operations return 0, or 1 for a refused argument, and then change nothing.
class CellGrid : public CWnd, public CUGNotifications {
  public:
    int GetColumnCount() const { return state_.columns.count(); }
    int GetRowCount() const { return state_.rows.count(); }
    int GetCell(int column, int row, CUGCell* cell);
    int SetCell(int column, int row, const CUGCell* cell);
    int SetCellText(int column, int row, LPCWSTR text);
    // Null when the cell has no text; valid until the cell changes.
    LPCWSTR GetCellText(int column, int row);
    int GetCellText(int column, int row, CString& text);
    int SetCellLabel(int column, int row, LPCWSTR text);
    int SetCellTypeIndex(int column, int row, int index);
    int SetCellTypeOptions(int column, int row, DWORD bits);
    // Adds a cell type, which the grid does not own and which must outlive it. Returns its index, also when the type
    // was added before; -1 for null and when the table is full.
    int AddCellType(CUGCellType* type);
    // The type with an index; the normal type for an index that is not in the table.
    CUGCellType& CellType(int index);
    CUGCellType& CellTypeAt(int column, int row);
    GridState& state() { return state_; }
    // The font of all cells: the dialog's font after AttachGrid, or the one that WM_SETFONT has set.
    HFONT GetGridFont() const { return font_; }

    virtual CUGGrid& GetGrid() = 0;
    virtual CUGTopHdg& GetTopHeading() = 0;
    virtual CommandTarget& Commands() = 0;
    // Brings the inner windows and the scroll bars up to date.
    virtual void UpdateLayout() = 0;
    virtual int RedrawCell(int column, int row) = 0;
    virtual void RedrawAll() = 0;
    virtual int SetRowCount(int count, BOOL redraw = TRUE) = 0;
    virtual int SetColumnWidth(int column, int width) = 0;
    virtual int ShowColumn(int column, BOOL show) = 0;
    // Gives a column the width that a person chose, held within what can be dragged, unless OnGridColumnSizing replaces
    // it by another.
    void OfferColumnWidth(int column, int width);

    virtual int GotoCell(int column, int row) = 0;
    virtual int SelectCell(int column, int row) = 0;
    virtual int ClearSelection() = 0;
    virtual void ClickCell(int column, int row, bool stretch, bool add) = 0;
    virtual int MoveCurrentRow(int direction) = 0;
    virtual int MoveCurrentColumn(int steps) = 0;
    virtual int MoveCurrentCell(int column, int row) = 0;

    // Lets a cell type hold one of its cells until the button or the key that caused the hold is released. Until then
    // the cell's control looks pressed, and the type is told of the pointer's moves and of the release.
    void HoldCell(CellHold hold);
    // The held cell; null while no cell is held.
    CellHold* HeldCell() { return hold_ ? &*hold_ : nullptr; }
    // Ends the hold, if there is one, without telling its type.
    std::optional<CellHold> TakeHold();
    // A number that changes when rows or columns move or are removed, and when the window moves. After a change, a
    // place that was kept from before may belong to another cell.
    unsigned arrangement() const { return arrangement_; }
    void CellsRearranged();

    virtual bool IsEditing() const = 0;
    virtual bool FinishEdit() = 0;
    virtual void OpenDropList(int column, int row) = 0;
    // Stores a text that the user chose without an editor; the verification and finish notifications may refuse it.
    virtual bool OfferCellText(int column, int row, LPCWSTR text) = 0;
    // Gives the focus to a part of the grid that was clicked, which ends an open edit. False when that is refused.
    virtual bool TakeFocus(CWnd& part) = 0;
    // Makes the cell current to which the key leads that ended an edit: Tab and Return lead to the next column or row,
    // with Shift to the one before, and the arrows up or down.
    virtual void GoOnFromEdit(UINT key) = 0;
    // Gives the focus to the open editor when the next message is processed.
    virtual void RefocusEditor() = 0;
    // Moves the open editor's caret to `point`, where the click into `cell` was that opened the editor; both are in
    // pixels of the painting area.
    virtual void PointInEditor(POINT point, const RECT& cell) = 0;
    // Whether Return in a cell moves to the next row, instead of pressing the dialog's default button.
    virtual bool TakesReturn() const { return false; }
    // Whether typed letters lead to the next row that begins with them in the current column.
    virtual bool GoesToTyped() const { return false; }
    // Whether commands (pasting, replacing) may change the cells' texts.
    virtual bool AllowsChanges() const { return false; }

  protected:
    bool Addresses(int column, int row) const;

    GridState state_;
    CUGMem memory_;
    CUGDataSource* source_ = &memory_;
    HFONT font_ = nullptr;  // not owned

  private:
    template <class Change>
    int ChangeCell(int column, int row, Change change);

    std::vector<CUGCellType*> types_;
    std::optional<CellHold> hold_;
    unsigned arrangement_ = 0;
};

}  // namespace corvanes
