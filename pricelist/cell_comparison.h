// How the module's grids order two cells when a heading is clicked.
#pragma once

#include "grid/cell.h"
#include "grid/cell_order.h"

namespace corvanes {

/// Negative, 0 or positive: the order of two cells (null: no cell) of the column that is sorted. Empty texts go last in
/// both directions; `by_value` compares the numbers at the front of the texts, otherwise numeric cells compare by their
/// values and all others as texts without regard to case. Not a strict weak order when cells without text are mixed in.
int compare_empty_last(const CUGCell* first, const CUGCell* second, int flags, bool by_value);

}  // namespace corvanes
