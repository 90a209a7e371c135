// MyCug2, the grid of the BOM Report: the priced rows, the closing "Summary:" row, sorting by a heading, hidden prices.
#pragma once

#include <array>

#include "bom/report_text.h"
#include "bom/result_string.h"
#include "grid/grid_control.h"

class MyCug2 : public CUGCtrl {
  public:
    using Widths = std::array<int, corvanes::report_columns>;

    MyCug2();

    /// Shows the rows, without those that an attached price list brought and nobody counted, and their sum.
    void FillReportGrid(const RowList& rows);
    /// Appends one row; the summary has neither a price nor a quantity.
    void AddReportRow(const ResultString& row, bool is_summary);
    /// Shows or hides the columns of money, as "Show Price" says.
    void ApplyShowPrice();
    /// Remembers the columns' present widths, but not that a column of money is hidden.
    void StoreColumnWidths();
    void DeleteAllRows();

    /// In pixels, by column; -1 until read or computed.
    Widths& stored_widths() { return widths_; }

    bool price_list_attached() const { return price_list_attached_; }
    void set_price_list_attached(bool attached) { price_list_attached_ = attached; }

    void OnGridSetup() override;
    void OnGridColumnSizing(int column, int* width) override;
    void OnGridHeadingClick(int column, long row, int updn, RECT* rect, POINT* point, int processed) override;
    void OnGridKeyDown(UINT* key, int processed) override;
    /// Return in a cell is not the dialog's, where it would start placing a table that nobody has built.
    bool TakesReturn() const override { return true; }
    int OnGridSortCompare(CUGCell* first, CUGCell* second, int flags) override;
    std::unique_ptr<corvanes::KeyedOrder> OnGridSortOrder(int flags) override;

  private:
    /// Equal widths where none are stored, or none that can be.
    void take_widths();
    void show_sort_arrow();
    bool sorts_by_value() const;

    Widths widths_;
    int sort_column_ = 0;
    bool ascending_ = true;
    CUGSortArrowType sort_arrow_;
    int sort_arrow_index_ = -1;
    CUGMaskedEdit editor_;
    ResultString summary_;
    bool price_list_attached_ = false;
};
