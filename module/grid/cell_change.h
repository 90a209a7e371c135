// CellAddress, the place of a cell in a grid, and CellChange, a cell with the text that it is to have.
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
