// The menu that comes up over a grid's cells and headings.
#pragma once

#include <afxwin.h>

#include <functional>
#include <optional>

#include "grid/grid_command.h"

namespace corvanes {

class CellGrid;

struct MenuChoice {
    GridCommand command;
    int column;
};

// Shows the menu at a point of the screen and gives the command that a person chooses; `column` is the one that was
// pointed at. Commands for which `can` answers false are left out.
std::optional<MenuChoice> ask_grid_menu(CellGrid& grid, CWnd& window, POINT point, int column,
                                        const std::function<bool(GridCommand)>& can);

}  // namespace corvanes
