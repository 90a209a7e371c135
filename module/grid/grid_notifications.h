// What the grid tells its derived class, and what it asks it.
#pragma once

#include <afxwin.h>

#include <memory>
#include <string>
#include <vector>

#include "grid/cell.h"
#include "grid/cell_change.h"
#include "grid/cell_order.h"
#include "grid/keyed_order.h"
#include "grid/print_titles.h"

namespace corvanes {

// The kinds of OnGridCellTypeNotify. `value` is the cell's text and `part` is 1 where nothing else is said.
enum CellNotice {
    notice_arrow = 1,  // `part` is the arrow's ArrowDirection
    notice_button = 2,
    notice_ellipsis = 3,
    notice_spin = 4,           // the text changed: `part` 1 up, 2 down
    notice_slider = 5,         // the text changed
    notice_slider_moving = 6,  // the thumb is being dragged; `value` is what releasing it there would store
    notice_radio = 7,          // the text changed: `part` counts the label's lines from 0
    notice_progress = 8,
    notice_advanced_progress = 9,  // `part` counts the bands from 0: the one that the value lies in; -1 without bands
    notice_pie_chart = 10,         // `part` counts the numbers from 0, `value` is that number; -1 for all of them
    notice_multi_font = 11,        // `part` counts the runs from 0, `value` is the run's text; -1 for all of them
    notice_auto_font = 12
};

}  // namespace corvanes

// A derived grid overrides what it needs; the versions here do nothing, or agree. `updn` is 1 when the left button went
// down and 0 when it came up. Rectangles and points are in pixels of the window that was clicked. `processed` is
// nonzero when the cell's type has already acted on the event. `UINT*` arguments may be changed: the grid goes on with
// what is left in them, and with 0 it does nothing more.
class CUGNotifications {
  public:
    // Called once, right after the grid window was created or attached.
    virtual void OnGridSetup() {}
    // Called while a column border is dragged, before `*width` becomes the column's width. The override may change it;
    // 0 hides the column.
    virtual void OnGridColumnSizing(int /*col*/, int* /*width*/) {}
    // Called after the current row changed. A row of -1 stands for none.
    virtual void OnGridRowChange(long /*oldRow*/, long /*newRow*/) {}
    // Called after the current cell changed; after OnGridRowChange when both apply.
    virtual void OnGridCellChange(int /*oldCol*/, int /*newCol*/, long /*oldRow*/, long /*newRow*/) {}
    // Called on a click into the painting area, after the clicked cell became the current one. For a click beside the
    // cells the column or the row is -1 and the rectangle is empty.
    virtual void OnGridLeftClick(int /*col*/, long /*row*/, int /*updn*/, RECT* /*rect*/, POINT* /*point*/,
                                 int /*processed*/) {}
    // Called on a click on a cell of the top heading (row -1), but not on a border between two.
    virtual void OnGridHeadingClick(int /*col*/, long /*row*/, int /*updn*/, RECT* /*rect*/, POINT* /*point*/,
                                    int /*processed*/) {}
    // Called for every key that goes down in the painting area, before the grid acts on it; not while a control is
    // held.
    virtual void OnGridKeyDown(UINT* /*vcKey*/, BOOL /*processed*/) {}
    // Called for every printable character typed in the painting area.
    virtual void OnGridCharDown(UINT* /*vcKey*/, BOOL /*processed*/) {}
    // Called by StartEdit, before the editor is shown. The override may put another window into `*edit`, which must
    // also be a corvanes::CellEditor. 0 refuses the edit.
    virtual int OnGridEditStart(int /*col*/, long /*row*/, CWnd** /*edit*/) { return 1; }
    // Called when an edit ends, before OnGridEditFinish. 0 keeps the editor open.
    virtual int OnGridEditVerify(int /*col*/, long /*row*/, CWnd* /*edit*/, LPCWSTR /*text*/) { return 1; }
    // Called when an edit ends; the cell still holds its former text. `text` is what was typed, or that former text
    // when the edit was cancelled. Nonzero accepts: the text goes into the cell (unless cancelled) and the editor is
    // hidden; 0 keeps the editor open.
    virtual int OnGridEditFinish(int /*col*/, long /*row*/, CWnd* /*edit*/, LPCWSTR /*text*/, BOOL /*cancelFlag*/) {
        return 1;
    }
    // Orders two cells of the sorted column: the result is below 0, 0 or above 0. An absent cell is null. `flags` are
    // those of SortBy.
    // Cells without a text come before those with one, numbers by value, all else by wcscmp; descending the other way.
    virtual int OnGridSortCompare(CUGCell* cell1, CUGCell* cell2, int flags) {
        return corvanes::compare_cells(cell1, cell2, flags);
    }
    // Called before the current cell moves. 0 refuses the movement.
    virtual int OnGridCanMove(int /*oldCol*/, long /*oldRow*/, int /*newCol*/, long /*newRow*/) { return 1; }
    // Called before a sort. May return an object with the order that OnGridSortCompare has for `flags`, which the grid
    // owns until the sort is over and uses in its place; null has the grid call OnGridSortCompare.
    virtual std::unique_ptr<corvanes::KeyedOrder> OnGridSortOrder(int /*flags*/) { return nullptr; }
    // Called before a command changes several cells at once; they still hold their former texts, and rows beyond the
    // last are not there yet. A text that is not empty refuses all changes and is shown. The version here asks
    // OnGridEditVerify and OnGridEditFinish about each change.
    virtual std::wstring OnGridCellsChange(const std::vector<corvanes::CellChange>& changes);
    // Called after OnGridCellsChange, when rows were appended and before their texts are stored.
    virtual void OnGridRowsAppend(long /*first*/, long /*count*/) {}
    // Called before the grid is printed, to fill in what stands above each page. False when it may not be printed.
    virtual bool OnGridPrint(corvanes::PrintTitles* /*titles*/) { return false; }
    // Called when a person used the control in a cell, after a change of its text went through OnGridEditVerify and
    // OnGridEditFinish. `kind` is a corvanes::CellNotice, which says what `part` and `value` stand for.
    virtual void OnGridCellTypeNotify(int /*col*/, long /*row*/, int /*kind*/, int /*part*/, LPCWSTR /*value*/) {}

  protected:
    virtual ~CUGNotifications() = default;
};
