#include "bom/report_grid.h"

#include <algorithm>

#include "bom/drawing_name.h"
#include "bom/report_options.h"
#include "common/price_text.h"

using namespace corvanes;

namespace {

const std::vector<GridColumn>& grid_columns() {
    static const std::vector<GridColumn> columns = [] {
        std::vector<GridColumn> made;
        for (const ReportColumnTraits& column : report_column_traits) {
            made.push_back({column.heading, column.number});
        }
        return made;
    }();
    return columns;
}

/// Moves the dialog into the corner of the screen where it hides least of a drawing.
void move_aside(CWnd& dialog) {
    MONITORINFO screen{};
    screen.cbSize = sizeof screen;
    CRect place;
    dialog.GetWindowRect(&place);
    if (::GetMonitorInfoW(::MonitorFromWindow(dialog.m_hWnd, MONITOR_DEFAULTTONEAREST), &screen) != 0) {
        ::SetWindowPos(dialog.m_hWnd, nullptr, std::max(screen.rcWork.left, screen.rcWork.right - place.Width()),
                       std::max(screen.rcWork.top, screen.rcWork.bottom - place.Height()), 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

}  // namespace

MyCug2::MyCug2(GridOwner* dialog) : SortingGrid(grid_columns(), dialog) {
    summary_.name = summary_name;
}

void MyCug2::OnGridSetup() {
    SetUpRows();
    KeepVerticalBar();
    CRect client;
    GetClientRect(&client);
    SetUpColumns(std::vector<int>(report_columns, 4 * ((client.Width() - GetSideHeadingWidth()) / 20)));
    ApplyShowPrice();
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
    OnGridRowChange(-1, GetCurrentRow());
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
            SetColumnWidth(column, show ? stored_widths()[static_cast<size_t>(column)] : 0);
        }
    }
    RedrawAll();
}

bool MyCug2::StoresWidth(int column, int width) const {
    return width != 0 || !traits_of(column).money;
}

void MyCug2::OnGridColumnSizing(int column, int* width) {
    if (!report_options().show_prices) {
        *width = traits_of(column).money ? 0 : stored_widths()[static_cast<size_t>(column)];
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
    SortByHeading(column);
    AddReportRow(summary_, true);
    if (on_summary) {
        GotoCell(GetCurrentColumn(), GetRowCount() - 1);
    }
    RedrawAll();
}

void MyCug2::OnGridRowChange(long, long row) {
    const wchar_t* const counted = row < 0 ? nullptr : GetCellText(quantity_column, static_cast<int>(row));
    if (counted == nullptr || *counted == 0) {
        highlight_.clear();
    } else {
        highlight_.show(GetCellText(name_column, static_cast<int>(row)));
    }
}

void MyCug2::OnGridLeftClick(int column, long row, int updn, RECT*, POINT*, int) {
    if (updn == 0) {
        return;
    }
    const LONG now = ::GetMessageTime();
    const bool again = row == last_clicked_row_ && now - last_click_ < static_cast<LONG>(::GetDoubleClickTime());
    last_click_ = now;
    last_clicked_row_ = column == quantity_column && !again ? row : -1;
    if (column == quantity_column && again) {
        highlight_.zoom();
        move_aside(*GetParent());
    }
}

bool MyCug2::OnGridPrint(PrintTitles* titles) {
    const std::wstring& list = report_options().price_list_path;
    titles->left = list.substr(list.find_last_of(L"\\/") + 1);
    titles->right = drawing_name();
    return true;
}
