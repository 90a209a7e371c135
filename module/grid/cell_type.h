// The kinds of cells: how a cell is drawn and what a click or a key does to it.
#pragma once

#include <afxwin.h>

#include "grid/cell.h"
#include "grid/cell_text.h"

namespace corvanes {

class CellGrid;

struct CellHold;

struct CellPlace {
    int column;
    int row;
    RECT rect;  // in pixels of the painting area, without the grid lines
};

// The indices that every grid's table begins with; types that are added follow.
enum StandardCellType {
    type_normal = 0,
    type_drop_list = 1,
    type_check_box = 2,
    type_arrow = 3,
    type_button = 4,
    type_ellipsis = 5,
    type_spin_button = 6,
    type_slider = 7,
    type_radio = 8,
    type_progress = 9,
    type_advanced_progress = 10,
    type_pie_chart = 11,
    type_multi_font = 12,
    type_auto_font = 13,
    standard_cell_types = 14
};

}  // namespace corvanes

// The normal cell type, and the base of the others. An object may serve several cells and grids; it keeps nothing
// about one cell.
class CUGCellType {
  public:
    CUGCellType() = default;
    CUGCellType(const CUGCellType&) = delete;
    CUGCellType& operator=(const CUGCellType&) = delete;
    virtual ~CUGCellType() = default;

    virtual const wchar_t* GetName() const { return L"Normal Cell Type (default)"; }
    // Paints the whole of `rect`.
    virtual void OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const corvanes::CellLook& look);
    // The part of a cell at `rect` in which its text is painted, and whether a text without Hebrew stands at the right
    // there, whatever its column says.
    virtual RECT TextPlace(const RECT& rect, const CUGCell& cell) const;
    virtual bool TextAtRight(const CUGCell& /*cell*/) const { return false; }
    // Whether a hint has to show the text, because a cell of this size does not show it whole.
    virtual bool CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const;
    // The smallest size, in pixels and without the grid lines, in which the cell shows its whole content. `dc` has the
    // grid's font selected.
    virtual SIZE BestSize(CDC& dc, const CUGCell& cell) const;
    // True when the type acted on the event. `updn` is 1 for the button going down and 0 for its coming up.
    virtual bool OnLeftClick(corvanes::CellGrid& grid, const corvanes::CellPlace& place, int updn, POINT point);
    virtual bool OnKeyDown(corvanes::CellGrid& grid, const corvanes::CellPlace& place, UINT key);
    virtual bool OnCharDown(corvanes::CellGrid& grid, const corvanes::CellPlace& place, UINT character);
    // Called when the wheel turned over the current cell, with the number of whole notches: above 0 away from the
    // person, 0 while parts of a notch add up. False leaves the wheel to the grid, which scrolls.
    virtual bool OnWheel(corvanes::CellGrid& grid, const corvanes::CellPlace& place, int notches);

    // What comes to the type that holds a cell (CellGrid::HoldCell), wherever the pointer is. The place's rectangle is
    // empty while the cell is out of sight.
    virtual void OnDrag(corvanes::CellGrid& grid, const corvanes::CellPlace& place, POINT point);
    // Called some twenty times a second while the button is held, after a first pause. False ends these calls.
    virtual bool OnHoldOn(corvanes::CellGrid& grid, const corvanes::CellPlace& place);
    // Called when the button or the space bar came up; the hold is over, and `hold` tells what was held.
    virtual void OnRelease(corvanes::CellGrid& grid, const corvanes::CellPlace& place, const corvanes::CellHold& hold);

  protected:
    // Called on F4, and on Alt with the down arrow, which open or press a cell's button.
    static bool IsOpenKey(UINT key);
};
