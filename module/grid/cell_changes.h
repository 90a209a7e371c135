// Changes of several cells at once, which a person's command asks for: all of them are made, or none.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "grid/cell_change.h"

namespace corvanes {

class CellGrid;

// How many cells have another text now; nothing when the changes were refused, which one message has told. Rows beyond
// the last one are appended. No edit may be open.
std::optional<std::size_t> change_cells(CellGrid& grid, std::vector<CellChange> changes);

}  // namespace corvanes
