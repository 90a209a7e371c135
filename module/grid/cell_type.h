// The kinds of cells: how a cell is drawn and what a click or a key does to it.
#pragma once

#include <afxwin.h>

#include "grid/cell.h"
#include "grid/cell_text.h"

namespace corvanes {

class CellGrid;

struct CellPlace {
    int column;
    int row;
    RECT rect;  // in pixels of the painting area, without the grid lines
};

// The indices that every grid's table begins with; types that are added follow.
enum StandardCellType { type_normal = 0, type_drop_list = 1, type_check_box = 2, standard_cell_types = 3 };

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
    // The part of a cell in which its text is painted.
    virtual RECT TextPlace(const RECT& cell) const;
    // Whether a cell of this size does not show its text whole, so that a hint has to.
    virtual bool CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const;
    // The smallest size, in pixels and without the grid lines, in which the cell shows all that it has. `dc` has the
    // grid's font selected.
    virtual SIZE BestSize(CDC& dc, const CUGCell& cell) const;
    // True when the type acted on the event. `updn` is 1 for the button going down and 0 for its coming up.
    virtual bool OnLeftClick(corvanes::CellGrid& grid, const corvanes::CellPlace& place, int updn, POINT point);
    virtual bool OnKeyDown(corvanes::CellGrid& grid, const corvanes::CellPlace& place, UINT key);
    virtual bool OnCharDown(corvanes::CellGrid& grid, const corvanes::CellPlace& place, UINT character);
};
