#include "grid/grid_menu.h"

#include <string>

#include "grid/cell_grid.h"

namespace corvanes {

namespace {

struct MenuLine {
    const wchar_t* text;
    GridCommand command;
    int group;  // a line separates groups
};

constexpr MenuLine menu_lines[] = {
    {L"Cu&t\tCtrl+X", GridCommand::cut, 0},
    {L"&Copy\tCtrl+C", GridCommand::copy, 0},
    {L"Copy with &Headings\tCtrl+Shift+C", GridCommand::copy_with_headings, 0},
    {L"&Paste\tCtrl+V", GridCommand::paste, 0},
    {L"&Delete\tDel", GridCommand::clear, 0},
    {L"Select &All\tCtrl+A", GridCommand::select_all, 0},
    {L"&Find...\tCtrl+F", GridCommand::find, 1},
    {L"&Replace...\tCtrl+H", GridCommand::replace, 1},
    {L"&Sort\tF3", GridCommand::sort, 2},
    {L"Fit Colum&n", GridCommand::fit_column, 2},
    {L"Hid&e Column", GridCommand::hide_column, 2},
    {L"Pr&int...\tCtrl+P", GridCommand::print, 3},
};

constexpr UINT first_command = 1;
constexpr UINT all_columns = 0x4000;
constexpr UINT first_column = 0x4001;

constexpr int heading_row = -1;

// The hidden columns by their headings; false when there are none.
bool fill_columns(CellGrid& grid, CMenu& menu) {
    const ColumnLayout& columns = grid.state().columns;
    int hidden = 0;
    for (int column = 0; column < columns.count(); ++column) {
        if (columns.hidden(column)) {
            const wchar_t* const heading = grid.GetCellText(column, heading_row);
            menu.AppendMenu(MF_STRING, first_column + static_cast<UINT>(column), heading != nullptr ? heading : L"");
            ++hidden;
        }
    }
    if (hidden > 1) {
        menu.AppendMenu(MF_SEPARATOR);
        menu.AppendMenu(MF_STRING, all_columns, L"&All");
    }
    return hidden > 0;
}

}  // namespace

std::optional<MenuChoice> ask_grid_menu(CellGrid& grid, CWnd& window, POINT point, int column,
                                        const std::function<bool(GridCommand)>& can) {
    CMenu menu, columns;
    menu.CreatePopupMenu();
    columns.CreatePopupMenu();
    int group = 0;
    for (const MenuLine& line : menu_lines) {
        if (can(line.command)) {
            if (line.group != group) {
                menu.AppendMenu(MF_SEPARATOR);
            }
            group = line.group;
            menu.AppendMenu(MF_STRING, first_command + static_cast<UINT>(line.command), line.text);
        }
    }
    if (fill_columns(grid, columns)) {
        // The menu that the popup is put into destroys it.
        menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(columns.Detach()), L"Sho&w Column");
    }
    const auto chosen = static_cast<UINT>(
        menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x, point.y, &window));
    // Wine answers -2 when a menu inside was opened by its letter and closed by Escape.
    if (chosen >= all_columns && chosen < first_column + static_cast<UINT>(grid.GetColumnCount())) {
        return MenuChoice{GridCommand::show_column, static_cast<int>(chosen) - static_cast<int>(first_column)};
    }
    if (chosen >= first_command && chosen < all_columns) {
        return MenuChoice{static_cast<GridCommand>(chosen - first_command), column};
    }
    return std::nullopt;
}

}  // namespace corvanes
