// The columns of the report, in the grid, the report file and the table of the drawing.
#pragma once

#include <array>
#include <cstddef>
#include <string>

namespace corvanes {

constexpr int report_columns = 5;
enum ReportColumn { name_column, price_column, quantity_column, description_column, total_column };

/// How the grid, the report file, report.json and the table present a column.
struct ReportColumnTraits {
    const wchar_t* heading;
    const char* member;   ///< the member of a row in report.json
    size_t file_width;    ///< the least width of its field in the report file, in characters
    const wchar_t* tag;   ///< the tag of the heading's attribute in the table; rows append their number to it
    bool money = false;   ///< the column is left out without prices
    bool number = false;  ///< the column is sorted by value
};

constexpr std::array<ReportColumnTraits, report_columns> report_column_traits = {{
    {.heading = L"Block name", .member = "block", .file_width = 10, .tag = L"BLOCKNAME"},
    {.heading = L"Item Price", .member = "price", .file_width = 10, .tag = L"PRICE", .money = true, .number = true},
    {.heading = L"Quantity", .member = "quantity", .file_width = 10, .tag = L"QUANTITY", .number = true},
    {.heading = L"Description", .member = "description", .file_width = 20, .tag = L"DESCRIPTION"},
    {.heading = L"Total", .member = "total", .file_width = 10, .tag = L"TOTAL", .money = true, .number = true},
}};

constexpr const ReportColumnTraits& traits_of(int column) {
    return report_column_traits[static_cast<size_t>(column)];
}

/// The texts of one row of the report grid, by column.
using ReportCells = std::array<std::wstring, report_columns>;

}  // namespace corvanes
