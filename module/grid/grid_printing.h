// The printing of a grid on paper.
#pragma once

#include "grid/print_titles.h"

namespace corvanes {

class CellGrid;

// Asks for the printer and the pages with the system's dialog and prints them; Escape between two pages stops the
// printing. Shows a message when there is no printer or the printing fails.
void print_grid(CellGrid& grid, const PrintTitles& titles);

}  // namespace corvanes
