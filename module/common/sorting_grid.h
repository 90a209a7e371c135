// SortingGrid, the base of the module's two grids: headings to sort by, column widths that are remembered, rows as high
// as the font.
#pragma once

#include <memory>
#include <vector>

#include "grid/grid_control.h"

namespace corvanes {

/// The dialog that a grid stands in, as the grid sees it.
class GridOwner {
  public:
    /// What the dialog's Close button does.
    virtual void Close() = 0;

  protected:
    ~GridOwner() = default;
};

struct GridColumn {
    const wchar_t* heading;
    bool number;  ///< stands at the right, and is sorted by its value
};

}  // namespace corvanes

class SortingGrid : public CUGCtrl {
  public:
    /// In pixels, by column; -1 until read or computed.
    std::vector<int>& stored_widths() { return widths_; }
    void StoreColumnWidths();

    int OnGridSortCompare(CUGCell* first, CUGCell* second, int flags) override;
    std::unique_ptr<corvanes::KeyedOrder> OnGridSortOrder(int flags) override;
    /// Whether the message is a key for the grid. The dialog asks for each of its messages: Ctrl with a letter that
    /// copies, finds or prints is the grid's on the dialog's buttons too.
    bool TakesKey(const MSG& message);
    /// Escape closes the dialog.
    void OnGridKeyDown(UINT* key, BOOL processed) override;

  protected:
    static constexpr int heading_row = -1;

    /// `columns` must outlive the grid. Without an owner Escape does nothing.
    SortingGrid(const std::vector<corvanes::GridColumn>& columns, corvanes::GridOwner* owner);

    /// Takes away the side heading and makes the rows as high as the font.
    void SetUpRows();
    /// Makes the columns. A column without a stored width that a person could have dragged gets the computed one.
    void SetUpColumns(const std::vector<int>& computed_widths);
    /// Sorts by a column, the other way round if it is sorted by that already.
    void SortByHeading(int column);
    /// Whether StoreColumnWidths takes a column's present width.
    virtual bool StoresWidth(int /*column*/, int /*width*/) const { return true; }

  private:
    bool sorts_by_value() const { return columns_[static_cast<size_t>(sort_column_)].number; }
    void ShowSortArrow();

    const std::vector<corvanes::GridColumn>& columns_;
    corvanes::GridOwner* owner_;
    std::vector<int> widths_;
    CUGSortArrowType sort_arrow_;
    int sort_arrow_index_ = -1;
    int sort_column_ = 0;
    bool ascending_ = true;
};
