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

// What a person chooses at a point of the screen; `column` is the one that was pointed at. Commands for which `can`
// answers false are left out.
std::optional<MenuChoice> ask_grid_menu(CellGrid& grid, CWnd& window, POINT point, int column,
                                        const std::function<bool(GridCommand)>& can);

}  // namespace corvanes
