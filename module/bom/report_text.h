// The report as texts: the cells of a row, the lines of the report file, and the file's proposed name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "bom/report_columns.h"

namespace corvanes {

constexpr const wchar_t* summary_name = L"Summary:";

/// The text of the report file: a heading line, then a line for each row in the order given, each ending in CR LF. The
/// cells are right-aligned in fields of at least 10, 10, 10, 20 and 10 characters with a blank between them. Without
/// prices there are only the name, the quantity and the description, and the summary row is left out.
std::wstring report_text(const std::vector<ReportCells>& rows, bool show_prices);

/// The file name that is proposed for the report: the price list's path less its last 4 characters, "-" and the
/// drawing's name (just the drawing's name without a price list), with its last 4 characters replaced by ".txt".
std::wstring default_report_name(std::wstring_view price_list_path, std::wstring_view drawing_name);

}  // namespace corvanes
