#include "grid/cell_changes.h"

#include <algorithm>
#include <string>

#include "bidi/text_editing.h"
#include "grid/cell_grid.h"

namespace corvanes {

namespace {

std::wstring refusal(CellGrid& grid, const std::vector<CellChange>& changes) {
    for (const CellChange& change : changes) {
        if (change.text.size() > TextEditing::max_length) {
            return L"Row " + std::to_wstring(change.cell.row + 1) + L": the text is longer than " +
                   std::to_wstring(TextEditing::max_length) + L" characters";
        }
    }
    return grid.OnGridCellsChange(changes);
}

}  // namespace

std::optional<std::size_t> change_cells(CellGrid& grid, std::vector<CellChange> changes) {
    const int rows = grid.GetRowCount();
    int needed = rows;
    for (const CellChange& change : changes) {
        needed = std::max(needed, change.cell.row + 1);
    }
    std::erase_if(changes, [&grid, rows](const CellChange& change) {
        const wchar_t* const text = grid.GetCellText(change.cell.column, change.cell.row);
        return change.cell.row < rows && change.text == (text != nullptr ? text : L"");
    });
    if (changes.empty()) {
        return 0;
    }
    if (const std::wstring words = refusal(grid, changes); !words.empty()) {
        AfxMessageBox(words.c_str(), MB_OK | MB_ICONEXCLAMATION);
        return std::nullopt;
    }
    if (needed > rows) {
        grid.SetRowCount(needed);
        grid.OnGridRowsAppend(rows, needed - rows);
    }
    for (const CellChange& change : changes) {
        grid.SetCellText(change.cell.column, change.cell.row, change.text.c_str());
    }
    grid.RedrawAll();
    return changes.size();
}

}  // namespace corvanes
