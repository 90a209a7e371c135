#include "grid/cells_text.h"

#include <array>
#include <cstdio>
#include <optional>
#include <utility>

#include "base/code_page.h"
#include "bidi/reordering.h"

namespace corvanes {

namespace {

constexpr wchar_t quote = L'"';
constexpr std::wstring_view cell_ends = L"\t\r\n";

void append_quoted(std::wstring& text, std::wstring_view cell) {
    text += quote;
    for (const wchar_t character : cell) {
        text += character;
        if (character == quote) {
            text += quote;
        }
    }
    text += quote;
}

}  // namespace

void TabSeparatedText::add(std::wstring_view cell) {
    if (in_row_) {
        text_ += L'\t';
    }
    in_row_ = true;
    if (cell.find_first_of(cell_ends) != cell.npos || cell.starts_with(quote)) {
        append_quoted(text_, cell);
    } else {
        text_ += cell;
    }
}

void TabSeparatedText::end_row() {
    text_ += L"\r\n";
    in_row_ = false;
}

namespace {

void append_escaped(std::string& html, std::string_view text) {
    for (const char character : text) {
        switch (character) {
            case '&':
                html += "&amp;";
                break;
            case '<':
                html += "&lt;";
                break;
            case '>':
                html += "&gt;";
                break;
            case '"':
                html += "&quot;";
                break;
            case '\n':
                html += "<br>";
                break;
            default:
                html += character;
        }
    }
}

}  // namespace

void HtmlTable::add(std::wstring_view cell, Kind kind) {
    if (!in_row_) {
        rows_ += "<tr>";
        in_row_ = true;
    }
    const std::string text = base::utf8_from_wide(cell);
    const char* const element = kind == Kind::heading ? "th" : "td";
    rows_ += std::string("<") + element;
    if (contains_right_to_left(cell)) {
        rows_ += " dir=\"rtl\"";
    }
    // Each family of spreadsheets has its own word for the type.
    rows_ += kind == Kind::number ? " align=\"right\" sdnum=\"1033;\" sdval=\"" + text + "\" x:num=\"" + text + "\">"
                                  : " style=\"mso-number-format:'\\@'\" sdnum=\"1033;0;@\" x:str>";
    append_escaped(rows_, text);
    rows_ += std::string("</") + element + ">";
}

void HtmlTable::end_row() {
    rows_ += "</tr>\r\n";
    in_row_ = false;
}

std::string HtmlTable::take() {
    constexpr std::string_view before =
        "<html xmlns:x=\"urn:schemas-microsoft-com:office:excel\"><head><meta charset=\"utf-8\"></head><body>\r\n"
        "<!--StartFragment--><table>\r\n";
    constexpr std::string_view after = "</table><!--EndFragment-->\r\n</body></html>";
    constexpr std::string_view start_mark = "<!--StartFragment-->";
    constexpr std::string_view end_mark = "<!--EndFragment-->";
    constexpr const char* header =
        "Version:0.9\r\nStartHTML:%010zu\r\nEndHTML:%010zu\r\nStartFragment:%010zu\r\nEndFragment:%010zu\r\n";
    std::array<char, 160> filled{};
    const auto length = static_cast<std::size_t>(std::snprintf(filled.data(), filled.size(), header, std::size_t{0},
                                                               std::size_t{0}, std::size_t{0}, std::size_t{0}));
    const std::size_t rows_at = length + before.size();
    std::snprintf(filled.data(), filled.size(), header, length, rows_at + rows_.size() + after.size(),
                  length + before.find(start_mark) + start_mark.size(), rows_at + rows_.size() + after.find(end_mark));
    std::string html(filled.data(), length);
    html += before;
    html += std::exchange(rows_, {});
    html += after;
    return html;
}

namespace {

// Reads the cells of a text one after another.
class CellReader {
  public:
    explicit CellReader(std::wstring_view text) : rest_(text) {}

    bool at_end() const { return rest_.empty(); }

    std::wstring take_cell() {
        if (rest_.starts_with(quote)) {
            if (auto quoted = take_quoted()) {
                return *std::move(quoted);
            }
        }
        std::wstring cell(rest_.substr(0, rest_.find_first_of(cell_ends)));
        rest_.remove_prefix(cell.size());
        return cell;
    }

    // Takes what follows a cell: true when another cell of the same row does.
    bool take_separator() {
        const bool tab = rest_.starts_with(L'\t');
        rest_.remove_prefix(tab ? 1 : line_end_at(0));
        return tab;
    }

  private:
    std::size_t line_end_at(std::size_t place) const {
        const std::wstring_view here = rest_.substr(place);
        return here.starts_with(L"\r\n") ? 2 : here.starts_with(L'\r') || here.starts_with(L'\n') ? 1 : 0;
    }

    std::optional<std::wstring> take_quoted() {
        std::wstring cell;
        std::size_t place = 1;
        while (place < rest_.size()) {
            if (const std::size_t line_end = line_end_at(place); line_end > 0) {
                cell += L'\n';
                place += line_end;
            } else if (rest_[place] != quote) {
                cell += rest_[place++];
            } else if (rest_.substr(place + 1).starts_with(quote)) {
                cell += quote;
                place += 2;
            } else {
                break;
            }
        }
        const bool closed = place < rest_.size();
        const std::size_t end = place + 1;
        if (!closed || (end < rest_.size() && cell_ends.find(rest_[end]) == cell_ends.npos)) {
            return std::nullopt;
        }
        rest_.remove_prefix(end);
        return cell;
    }

    std::wstring_view rest_;
};

}  // namespace

std::vector<std::vector<std::wstring>> cells_of_text(std::wstring_view text) {
    std::vector<std::vector<std::wstring>> rows;
    for (CellReader reader(text); !reader.at_end();) {
        std::vector<std::wstring>& row = rows.emplace_back();
        do {
            row.push_back(reader.take_cell());
        } while (reader.take_separator());
    }
    return rows;
}

}  // namespace corvanes
