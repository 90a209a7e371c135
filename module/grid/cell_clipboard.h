// Copies a grid's cells to the clipboard and pastes them from it.
#pragma once

namespace corvanes {

class CellGrid;

// Copies the selected cells that are shown (the current one, when none is selected), as a text of tabs and lines and,
// up to a size that spreadsheets still read quickly, as a table; with `headings` the columns' headings come first.
// Returns false, with the system's beep, when there are no such cells or the clipboard cannot be opened.
bool copy_cells(CellGrid& grid, bool headings);

// Takes the clipboard's text as cells, from the first selected cell on, or the current one, in the columns that are
// shown. Rows that are missing are appended; one cell goes into every selected one. All of it is stored, or nothing
// after one message. Line breaks within a cell become blanks, as in the cells' own editor.
void paste_cells(CellGrid& grid);

// Deletes the texts of the selected cells that are shown.
void clear_cells(CellGrid& grid);

}  // namespace corvanes
