#include "bom/report_text.h"

#include <algorithm>

namespace corvanes {
namespace {

constexpr size_t extension_length = 4;

/// Appends a line of the report file; `cell_of(column)` is the text of a column.
template <class CellOf>
void append_line(std::wstring& text, bool show_prices, const CellOf& cell_of) {
    for (int column = 0; column < report_columns; ++column) {
        if (!show_prices && traits_of(column).money) {
            continue;
        }
        if (column != 0) {
            text.push_back(L' ');
        }
        const std::wstring_view cell = cell_of(column);
        const size_t width = traits_of(column).file_width;
        text.append(width - std::min(width, cell.size()), L' ').append(cell);
    }
    text.append(L"\r\n");
}

std::wstring_view without_extension(std::wstring_view name) {
    return name.substr(0, name.size() - std::min(name.size(), extension_length));
}

}  // namespace

std::wstring report_text(const std::vector<ReportCells>& rows, bool show_prices) {
    std::wstring text;
    append_line(text, show_prices, [](int column) { return traits_of(column).heading; });
    for (const ReportCells& row : rows) {
        if (show_prices || row[name_column] != summary_name) {
            append_line(text, show_prices,
                        [&row](int column) { return std::wstring_view(row[static_cast<size_t>(column)]); });
        }
    }
    return text;
}

std::wstring default_report_name(std::wstring_view price_list_path, std::wstring_view drawing_name) {
    std::wstring name;
    if (!price_list_path.empty()) {
        name.append(without_extension(price_list_path)).push_back(L'-');
    }
    name.append(drawing_name);
    return std::wstring(without_extension(name)) + L".txt";
}

}  // namespace corvanes
