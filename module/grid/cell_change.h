// Which cell of a grid, and what it is to become.
#pragma once

#include <string>

namespace corvanes {

struct CellAddress {
    int column = -1;
    int row = -1;
    bool operator==(const CellAddress&) const = default;
};

struct CellChange {
    CellAddress cell;
    std::wstring text;
    bool operator==(const CellChange&) const = default;
};

}  // namespace corvanes
