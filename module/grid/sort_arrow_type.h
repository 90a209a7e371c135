// CUGSortArrowType, the heading cell that shows by an arrow how its column is sorted.
#pragma once

#include "grid/cell_type.h"

namespace corvanes {

// The cell type options of a sorted heading.
enum SortArrow : std::uint32_t { arrow_up_descending = 16, arrow_down_ascending = 32 };

}  // namespace corvanes

// Without one of the option bits it looks like a normal cell.
class CUGSortArrowType : public CUGCellType {
  public:
    const wchar_t* GetName() const override { return L"Sort Arrow Type"; }
    void OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const corvanes::CellLook& look) override;
    // The size includes the arrow's place even while no arrow is shown, so that a sort does not cut the heading.
    SIZE BestSize(CDC& dc, const CUGCell& cell) const override;
};
