#include "grid/cell_clipboard.h"

#include <algorithm>
#include <string>

#include "bidi/clipboard_text.h"
#include "bidi/text_editing.h"
#include "grid/cell_changes.h"
#include "grid/cell_grid.h"
#include "grid/cells_text.h"
#include "grid/number_sum.h"
#include "grid/selected_cells.h"

namespace corvanes {

namespace {

// A table of more bytes is left out: a spreadsheet then reads the plain text, which is faster.
constexpr std::size_t largest_table = 8'000'000;

CellBlock selected_block(const CellGrid& grid) {
    const GridState& state = const_cast<CellGrid&>(grid).state();
    return selected_block(state.selection, state.columns, {state.current_column, state.current_row});
}

bool is_selected(CellGrid& grid, CellAddress cell) {
    const Selection& selection = grid.state().selection;
    return selection.empty() || selection.contains(cell.column, cell.row);
}

std::wstring_view text_of(CellGrid& grid, int column, int row) {
    const wchar_t* const text = grid.GetCellText(column, row);
    return text != nullptr ? text : std::wstring_view();
}

// The cells of a block in both of the clipboard's forms.
class CopiedCells {
  public:
    explicit CopiedCells(CellGrid& grid) : grid_(grid) {}

    void add_headings(const CellBlock& block) {
        constexpr int heading_row = -1;
        for (const int column : block.columns) {
            text_.add(text_of(grid_, column, heading_row));
            table_.add(text_of(grid_, column, heading_row), HtmlTable::Kind::heading);
        }
        end_row();
    }
    void add(CellAddress address) {
        const bool selected = is_selected(grid_, address);
        const std::wstring_view cell = selected ? text_of(grid_, address.column, address.row) : std::wstring_view();
        text_.add(cell);
        if (with_table()) {
            const bool number = grid_.state().columns.aligned_right(address.column) && plain_number(cell).has_value();
            table_.add(cell, number ? HtmlTable::Kind::number : HtmlTable::Kind::text);
        }
    }
    void end_row() {
        text_.end_row();
        if (with_table()) {
            table_.end_row();
        }
    }
    bool put() {
        const std::wstring text = text_.take();
        const bool whole_table = with_table();
        const std::string table = table_.take();
        std::vector<ClipboardForm> forms;
        if (whole_table) {
            forms.push_back({::RegisterClipboardFormatW(L"HTML Format"), {table.c_str(), table.size() + 1}});
        }
        forms.push_back(clipboard_form(text));
        return put_clipboard(grid_.m_hWnd, forms);
    }

  private:
    bool with_table() const { return table_.size() < largest_table; }

    CellGrid& grid_;
    TabSeparatedText text_;
    HtmlTable table_;
};

using CellRows = std::vector<std::vector<std::wstring>>;

// The clipboard's cells, as the cells' editor would take them; none when there is no text.
CellRows pasted_rows(const CellGrid& grid) {
    CellRows rows = cells_of_text(clipboard_text(grid.m_hWnd).value_or(L""));
    for (std::vector<std::wstring>& row : rows) {
        std::transform(row.begin(), row.end(), row.begin(), single_line);
    }
    return rows;
}

std::size_t widest_row(const CellRows& rows) {
    std::size_t widest = 0;
    for (const std::vector<std::wstring>& row : rows) {
        widest = std::max(widest, row.size());
    }
    return widest;
}

// Says why so many columns cannot be pasted where only `room` columns are; empty when they can.
std::wstring paste_refusal(std::size_t columns, std::size_t room) {
    if (columns == 0) {
        return L"There is no text on the clipboard";
    }
    return columns <= room ? std::wstring()
                           : L"The clipboard has " + std::to_wstring(columns) + L" columns, and only " +
                                 std::to_wstring(room) + L" begin here";
}

// The shown columns from one on, as many as there are.
std::vector<int> columns_from(const ColumnLayout& columns, int first) {
    std::vector<int> shown;
    for (int column = first; column < columns.count(); ++column) {
        if (columns.shows(column)) {
            shown.push_back(column);
        }
    }
    return shown;
}

// The cell to which a paste goes first.
CellAddress paste_place(CellGrid& grid) {
    const CellBlock block = selected_block(grid);
    const GridState& state = grid.state();
    if (!block.empty()) {
        return {block.columns.front(), block.rows.front().first};
    }
    return {state.columns.first_shown(), state.rows.count()};
}

std::vector<CellChange> same_in_all(CellGrid& grid, const std::wstring& text) {
    std::vector<CellChange> changes;
    for_each_cell(selected_block(grid), [&](CellAddress cell) {
        if (is_selected(grid, cell)) {
            changes.push_back({cell, text});
        }
    });
    return changes;
}

void select_block(CellGrid& grid, CellAddress from, CellAddress to) {
    grid.GotoCell(from.column, from.row);
    grid.ClearSelection();
    grid.state().selection.set_anchor(from.column, from.row);
    grid.state().selection.stretch_to(to.column, to.row);
    grid.RedrawAll();
}

}  // namespace

bool copy_cells(CellGrid& grid, bool headings) {
    const CellBlock block = selected_block(grid);
    CopiedCells copied(grid);
    if (headings) {
        copied.add_headings(block);
    }
    for_each_cell(
        block, [&copied](CellAddress cell) { copied.add(cell); }, [&copied] { copied.end_row(); });
    if (block.empty() || !copied.put()) {
        ::MessageBeep(MB_OK);
        return false;
    }
    return true;
}

void paste_cells(CellGrid& grid) {
    CellRows rows = pasted_rows(grid);
    const std::size_t widest = widest_row(rows);
    const CellAddress place = paste_place(grid);
    const std::vector<int> columns = columns_from(grid.state().columns, std::max(0, place.column));
    if (const std::wstring words = paste_refusal(widest, columns.size()); !words.empty()) {
        AfxMessageBox(words.c_str(), MB_OK | MB_ICONEXCLAMATION);
        return;
    }
    if (rows.size() == 1 && widest == 1 && !grid.state().selection.empty()) {
        change_cells(grid, same_in_all(grid, rows[0][0]));
        return;
    }
    std::vector<CellChange> changes;
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t column = 0; column < rows[row].size(); ++column) {
            changes.push_back({{columns[column], place.row + static_cast<int>(row)}, std::move(rows[row][column])});
        }
    }
    if (change_cells(grid, std::move(changes))) {
        const int last = place.row + static_cast<int>(rows.size()) - 1;
        select_block(grid, {columns[0], place.row}, {columns[widest - 1], last});
    }
}

void clear_cells(CellGrid& grid) {
    change_cells(grid, same_in_all(grid, L""));
}

}  // namespace corvanes
