#include "bom/report_rows.h"

#include "bom/report_grid.h"

namespace corvanes {

std::vector<ReportCells> shown_rows(MyCug2& grid) {
    std::vector<ReportCells> rows(static_cast<size_t>(grid.GetRowCount()));
    for (size_t row = 0; row < rows.size(); ++row) {
        for (int column = 0; column < report_columns; ++column) {
            const wchar_t* text = grid.GetCellText(column, static_cast<long>(row));
            rows[row][static_cast<size_t>(column)] = text == nullptr ? L"" : text;
        }
    }
    return rows;
}

}  // namespace corvanes
