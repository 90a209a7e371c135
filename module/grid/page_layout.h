// The layout of a table on printed pages: the widths of its columns, and the rows of each page. Pure.
#pragma once

#include <vector>

#include "grid/selected_cells.h"

namespace corvanes {

// Widths that fill the available width. When there is room for all, each grows in proportion; otherwise the narrow
// columns keep theirs and the wide ones share the rest evenly. No width is below 1.
std::vector<int> fitted_widths(const std::vector<int>& natural, int available);

// The rows of each page when `available` is the height for them on every page; a row that is taller has a page of its
// own. A table without rows has one page with a span whose last row is before its first.
std::vector<RowSpan> rows_of_pages(const std::vector<int>& heights, int available);

}  // namespace corvanes
