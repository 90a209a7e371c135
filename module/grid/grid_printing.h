// Printing a grid on paper.
#pragma once

#include "grid/print_titles.h"

namespace corvanes {

class CellGrid;

// Asks with the system's dialog for printer and pages and prints them; Escape between two pages stops it. Says so when
// there is no printer, or when it fails.
void print_grid(CellGrid& grid, const PrintTitles& titles);

}  // namespace corvanes
