// The grid's own order of two cells, which a derived grid may replace.
#pragma once

#include "grid/cell.h"

namespace corvanes {

// The flags of a sort.
enum SortFlag { sort_ascending = 1, sort_descending = 2 };

// Compares two cells: -1, 0 or 1; null stands for an absent cell. Absent cells come first, then those without a text;
// numbers, booleans and amounts of money go by value, everything else by its characters' codes. sort_descending
// exchanges the two cells.
int compare_cells(const CUGCell* first, const CUGCell* second, int flags);

}  // namespace corvanes
