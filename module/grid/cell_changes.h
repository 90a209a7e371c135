// Changes of several cells at once, which a person's command asks for: all of them are made, or none.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "grid/cell_change.h"

namespace corvanes {

class CellGrid;

// Makes the changes and returns how many cells have another text now. Nothing when the changes were refused; then one
// message has told why. Rows beyond the last one are appended. No edit may be open.
std::optional<std::size_t> change_cells(CellGrid& grid, std::vector<CellChange> changes);

}  // namespace corvanes
