// SortingGrid, the base of the grids in the dialogs: its headings sort, its column widths are remembered, and its rows
// are as high as the font.
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
    bool number;  ///< the texts stand at the right and are sorted by value
};

}  // namespace corvanes

class SortingGrid : public CUGCtrl {
  public:
    /// The widths in pixels, by column; a width is -1 until it is read or computed.
    std::vector<int>& stored_widths() { return widths_; }
    void StoreColumnWidths();

    int OnGridSortCompare(CUGCell* first, CUGCell* second, int flags) override;
    std::unique_ptr<corvanes::KeyedOrder> OnGridSortOrder(int flags) override;
    /// Whether the grid has acted on the message, a key. The dialog calls this for each of its messages, because Ctrl
    /// with a letter that copies, finds or prints works while a button has the focus, too.
    bool TakesKey(const MSG& message);
    /// Escape closes the dialog.
    void OnGridKeyDown(UINT* key, BOOL processed) override;

  protected:
    static constexpr int heading_row = -1;

    /// `columns` must outlive the grid. Without an owner Escape does nothing.
    SortingGrid(const std::vector<corvanes::GridColumn>& columns, corvanes::GridOwner* owner);

    /// Removes the side heading and makes the rows as high as the font.
    void SetUpRows();
    /// Makes the columns with their stored widths. A column gets the computed width when none is stored, or one that
    /// nobody could have dragged.
    void SetUpColumns(const std::vector<int>& computed_widths);
    /// Sorts by a column; in the other direction when the grid is sorted by that column already.
    void SortByHeading(int column);
    /// Whether StoreColumnWidths stores a column's present width.
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
