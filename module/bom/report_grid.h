// MyCug2, the grid of the BOM Report: the priced rows, the closing "Summary:" row, sorting by a heading, hidden prices.
#pragma once

#include "bom/report_text.h"
#include "bom/result_string.h"
#include "bom/row_highlight.h"
#include "common/sorting_grid.h"

class MyCug2 : public SortingGrid {
  public:
    explicit MyCug2(corvanes::GridOwner* dialog = nullptr);

    /// Shows the rows and their sum. With an attached price list, rows without a counted reference are left out.
    void FillReportGrid(const RowList& rows);
    /// Appends one row; the summary has neither a price nor a quantity.
    void AddReportRow(const ResultString& row, bool is_summary);
    /// Shows or hides the columns of money, as "Show Price" says.
    void ApplyShowPrice();
    void DeleteAllRows();
    /// Ends the highlight of the references that are lit in the drawing.
    void ClearHighlight() { highlight_.clear(); }

    bool price_list_attached() const { return price_list_attached_; }
    void set_price_list_attached(bool attached) { price_list_attached_ = attached; }

    void OnGridSetup() override;
    void OnGridColumnSizing(int column, int* width) override;
    void OnGridHeadingClick(int column, long row, int updn, RECT* rect, POINT* point, int processed) override;
    /// Lights the row's references in the drawing; a double click on their number zooms to them.
    void OnGridRowChange(long former, long row) override;
    void OnGridLeftClick(int column, long row, int updn, RECT* rect, POINT* point, int processed) override;
    /// Prints the price list's name above the left half of each page and the drawing's above the right half.
    bool OnGridPrint(corvanes::PrintTitles* titles) override;
    /// Typed letters lead to the next row that begins with them.
    bool GoesToTyped() const override { return true; }
    /// The grid takes Return: in the dialog it would start placing a table that nobody has built.
    bool TakesReturn() const override { return true; }

  private:
    /// Leaves out the width 0 of a column of money that "Show Price" hides.
    bool StoresWidth(int column, int width) const override;

    CUGMaskedEdit editor_;
    corvanes::RowHighlight highlight_;
    LONG last_click_ = 0;         ///< the message's time, in milliseconds
    long last_clicked_row_ = -1;  ///< the row whose quantity was clicked last; -1 for none
    ResultString summary_;
    bool price_list_attached_ = false;
};
