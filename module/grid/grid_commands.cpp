#include "grid/grid_commands.h"

#include <optional>

#include "grid/cell_clipboard.h"
#include "grid/cell_grid.h"
#include "grid/column_fitting.h"
#include "grid/grid_menu.h"
#include "grid/grid_printing.h"
#include "grid/number_sum.h"
#include "grid/selected_cells.h"
#include "grid/top_heading.h"

namespace corvanes {

namespace {

bool held(int key) {
    return ::GetKeyState(key) < 0;
}

struct CommandKey {
    UINT key;
    bool control = false;
    bool shift = false;
    GridCommand command;
};

constexpr CommandKey command_keys[] = {
    {.key = 'C', .control = true, .command = GridCommand::copy},
    {.key = VK_INSERT, .control = true, .command = GridCommand::copy},
    {.key = 'C', .control = true, .shift = true, .command = GridCommand::copy_with_headings},
    {.key = 'X', .control = true, .command = GridCommand::cut},
    {.key = VK_DELETE, .shift = true, .command = GridCommand::cut},
    {.key = 'V', .control = true, .command = GridCommand::paste},
    {.key = VK_INSERT, .shift = true, .command = GridCommand::paste},
    {.key = VK_DELETE, .command = GridCommand::clear},
    {.key = 'A', .control = true, .command = GridCommand::select_all},
    {.key = 'F', .control = true, .command = GridCommand::find},
    {.key = 'G', .control = true, .command = GridCommand::find_next},
    {.key = 'H', .control = true, .command = GridCommand::replace},
    {.key = 'P', .control = true, .command = GridCommand::print},
};

std::optional<GridCommand> command_of(UINT key, bool control, bool shift) {
    for (const CommandKey& known : command_keys) {
        if (known.key == key && known.control == control && known.shift == shift) {
            return known.command;
        }
    }
    return std::nullopt;
}

}  // namespace

bool GridCommands::KeyDown(UINT key) {
    const std::optional<GridCommand> command =
        held(VK_MENU) ? std::nullopt : command_of(key, held(VK_CONTROL), held(VK_SHIFT));
    const int column = grid_.state().current_column;
    if (command && Can(*command, column)) {
        Run(*command, column);
    }
    return command.has_value();
}

void GridCommands::SysKeyDown(UINT key) {
    constexpr int step = 8;  // pixels
    const ColumnLayout& columns = grid_.state().columns;
    const int column = grid_.state().current_column;
    if ((key == VK_LEFT || key == VK_RIGHT) && columns.shows(column)) {
        grid_.OfferColumnWidth(column, columns.width(column) + (key == VK_LEFT ? -step : step));
    }
}

void GridCommands::CharDown(wchar_t character) {
    const int rows = grid_.GetRowCount();
    const int row = grid_.state().current_row;
    const int column = grid_.state().current_column;
    if (!grid_.GoesToTyped() || row < 0) {
        return;
    }
    typed_.add(character, ::GetTickCount64());
    const auto next = [&](const std::wstring& letters, int from) {
        const CellSearch search(letters, {});
        for (int step = 0; step < rows; ++step) {
            const int place = static_cast<int>((static_cast<long long>(from) + step) % rows);
            const wchar_t* const text = grid_.GetCellText(column, place);
            if (text != nullptr && search.begins(text)) {
                return place;
            }
        }
        return -1;
    };
    int found = next(typed_.letters(), row);
    if (typed_.is_one_letter() && (found < 0 || found == row)) {
        found = next(typed_.letters().substr(0, 1), row + 1);
    }
    if (found >= 0) {
        grid_.ClearSelection();
        grid_.GotoCell(column, found);
    }
}

bool GridCommands::Can(GridCommand command, int column) const {
    switch (command) {
        case GridCommand::cut:
        case GridCommand::paste:
        case GridCommand::clear:
        case GridCommand::replace:
            return grid_.AllowsChanges();
        case GridCommand::fit_column:
        case GridCommand::sort:
            return grid_.state().columns.shows(column);
        case GridCommand::hide_column: {
            const ColumnLayout& columns = grid_.state().columns;
            return columns.shows(column) && columns.first_shown() != columns.last_shown();
        }
        case GridCommand::print: {
            PrintTitles titles;
            return grid_.OnGridPrint(&titles);
        }
        default:
            return true;
    }
}

void GridCommands::Run(GridCommand command, int column) {
    switch (command) {
        case GridCommand::copy:
        case GridCommand::copy_with_headings:
            copy_cells(grid_, command == GridCommand::copy_with_headings);
            return;
        case GridCommand::cut:
            if (copy_cells(grid_, false)) {
                clear_cells(grid_);
            }
            return;
        case GridCommand::paste:
            return paste_cells(grid_);
        case GridCommand::clear:
            return clear_cells(grid_);
        case GridCommand::select_all:
            return SelectAll();
        case GridCommand::find:
            return find_.Open(false);
        case GridCommand::find_next:
            return find_.FindNext();
        case GridCommand::replace:
            return find_.Open(true);
        case GridCommand::fit_column:
            return grid_.OfferColumnWidth(column, fitting_width(grid_, column));
        case GridCommand::sort:
            return grid_.GetTopHeading().ClickColumn(column);
        case GridCommand::hide_column:
            grid_.ShowColumn(column, FALSE);
            return;
        case GridCommand::print:
            return Print();
        case GridCommand::show_column:
            return ShowColumn(column);
    }
}

void GridCommands::SelectAll() {
    GridState& state = grid_.state();
    if (state.rows.count() > 0 && state.columns.first_shown() >= 0) {
        grid_.ClearSelection();
        state.selection.set_anchor(0, 0);
        state.selection.stretch_to(state.columns.count() - 1, state.rows.count() - 1);
        grid_.RedrawAll();
    }
}

void GridCommands::Print() {
    PrintTitles titles;
    if (grid_.OnGridPrint(&titles)) {
        print_grid(grid_, titles);
    }
}

void GridCommands::ShowColumn(int column) {
    for (int hidden = 0; hidden < grid_.GetColumnCount(); ++hidden) {
        if (grid_.state().columns.hidden(hidden) && (column < 0 || column == hidden)) {
            grid_.ShowColumn(hidden, TRUE);
        }
    }
}

void GridCommands::ShowMenu(CWnd& window, POINT point, int column) {
    const auto choice = ask_grid_menu(grid_, window, point, column,
                                      [this, column](GridCommand command) { return Can(command, column); });
    if (choice) {
        Run(choice->command, choice->column);
    }
}

bool GridCommands::StatusDue() const {
    return !grid_.state().selection.empty() || status_.shown();
}

void GridCommands::ShowStatus() {
    const GridState& state = grid_.state();
    NumberSum sum;
    if (!state.selection.empty()) {
        for_each_cell(selected_block(state.selection, state.columns, {}), [&](CellAddress cell) {
            const wchar_t* const text =
                state.selection.contains(cell.column, cell.row) ? grid_.GetCellText(cell.column, cell.row) : nullptr;
            sum.add(text != nullptr ? text : L"");
        });
    }
    status_.Show(grid_, grid_.GetGridFont(), sum.words());
}

void GridCommands::CloseWindows() {
    find_.DestroyWindow();
    status_.Destroy();
}

}  // namespace corvanes
