#include "bom/report_grid.h"

#include "bom/report_dialog.h"
#include "bom/report_options.h"
#include "common/cell_comparison.h"
#include "common/price_text.h"

using namespace corvanes;

namespace {

constexpr int heading_row = -1;
constexpr int normal_cell_type = 0;
constexpr int arrow_when_ascending = 32;
constexpr int arrow_when_descending = 16;

}  // namespace

MyCug2::MyCug2() {
    widths_.fill(-1);
    summary_.name = summary_name;
}

void MyCug2::OnGridSetup() {
    constexpr int leading = 3;
    TEXTMETRIC metrics{};
    {
        CClientDC context(this);
        CFont* const previous = context.SelectObject(GetFont());
        context.GetTextMetrics(&metrics);
        context.SelectObject(previous);
    }
    SetDefaultRowHeight(metrics.tmHeight + leading);
    SetSideHeadingWidth(0);
    KeepVerticalBar();
    SetDisplayFlag(1);
    take_widths();
    SetColumnCount(report_columns, FALSE);
    for (int column = 0; column < report_columns; ++column) {
        SetColumnWidth(column, widths_[static_cast<size_t>(column)]);
        AlignColumnRight(column, traits_of(column).number);
        SetCellText(column, heading_row, traits_of(column).heading);
    }
    sort_arrow_index_ = AddCellType(&sort_arrow_);
    show_sort_arrow();
    ApplyShowPrice();
}

void MyCug2::take_widths() {
    CRect client;
    GetClientRect(&client);
    Widths equal;
    equal.fill(4 * ((client.Width() - GetSideHeadingWidth()) / 20));
    if (widths_[0] == -1) {
        widths_ = equal;
    }
    mend_widths(widths_.data(), equal.data(), report_columns);
}

void MyCug2::show_sort_arrow() {
    SetCellTypeIndex(sort_column_, heading_row, sort_arrow_index_);
    SetCellTypeOptions(sort_column_, heading_row, ascending_ ? arrow_when_ascending : arrow_when_descending);
}

void MyCug2::DeleteAllRows() {
    SetRowCount(0, TRUE);
}

void MyCug2::FillReportGrid(const RowList& rows) {
    DeleteAllRows();
    summary_.total = 0;
    for (INT_PTR i = 0; i < rows.GetSize(); ++i) {
        const ResultString& row = rows[i];
        if (price_list_attached_ && row.quantity == 0) {
            continue;
        }
        AddReportRow(row, false);
        summary_.total += row.total;
    }
    if (GetRowCount() > 0) {
        AddReportRow(summary_, true);
    }
    RedrawAll();
}

void MyCug2::AddReportRow(const ResultString& row, bool is_summary) {
    AppendRow();
    const long last = GetRowCount() - 1;
    SetCellText(name_column, last, row.name);
    if (!is_summary) {
        SetCellText(price_column, last, amount_text(row.price).c_str());
        SetCellText(quantity_column, last, std::to_wstring(row.quantity).c_str());
    }
    SetCellText(description_column, last, row.description);
    SetCellText(total_column, last, amount_text(row.total).c_str());
}

void MyCug2::ApplyShowPrice() {
    const bool show = report_options().show_prices;
    if (!show) {
        StoreColumnWidths();
    }
    for (int column = 0; column < report_columns; ++column) {
        if (traits_of(column).money) {
            SetColumnWidth(column, show ? widths_[static_cast<size_t>(column)] : 0);
        }
    }
    RedrawAll();
}

void MyCug2::StoreColumnWidths() {
    for (int column = 0; column < report_columns; ++column) {
        const int width = GetColumnWidth(column);
        if (width != 0 || !traits_of(column).money) {
            widths_[static_cast<size_t>(column)] = width;
        }
    }
}

void MyCug2::OnGridColumnSizing(int column, int* width) {
    if (!report_options().show_prices) {
        *width = traits_of(column).money ? 0 : widths_[static_cast<size_t>(column)];
    }
}

void MyCug2::OnGridHeadingClick(int column, long, int updn, RECT*, POINT*, int) {
    if (updn == 0) {
        return;
    }
    const bool on_summary = GetRowCount() > 1 && GetCurrentRow() == GetRowCount() - 1;
    if (GetRowCount() > 1) {
        DeleteRow(GetRowCount() - 1);
    }
    SetCellTypeIndex(sort_column_, heading_row, normal_cell_type);
    ascending_ = column == sort_column_ ? !ascending_ : true;
    sort_column_ = column;
    SortBy(column, ascending_ ? sort_ascending : sort_descending);
    show_sort_arrow();
    AddReportRow(summary_, true);
    if (on_summary) {
        GotoCell(GetCurrentColumn(), GetRowCount() - 1);
    }
    RedrawAll();
}

void MyCug2::OnGridKeyDown(UINT* key, int) {
    if (*key == VK_ESCAPE && CalcPriceDialog::open_dialog() != nullptr) {
        CalcPriceDialog::open_dialog()->SaveReportSettingsAndClose();
    }
}

bool MyCug2::sorts_by_value() const {
    return traits_of(sort_column_).number;
}

int MyCug2::OnGridSortCompare(CUGCell* first, CUGCell* second, int flags) {
    return compare_empty_last(first, second, flags, sorts_by_value());
}

std::unique_ptr<KeyedOrder> MyCug2::OnGridSortOrder(int flags) {
    return std::make_unique<EmptyLastOrder>(flags, sorts_by_value());
}
