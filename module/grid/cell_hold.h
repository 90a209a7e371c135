// A cell whose control is held, by the left button that went down on it or by the space bar.
#pragma once

#include <optional>
#include <string>

class CUGCellType;

namespace corvanes {

struct CellHold {
    CUGCellType* type;
    int column;
    int row;
    int part;                                         // as the type numbers them
    bool by_key = false;                              // else by the left button
    bool over = true;                                 // the pointer is over the part
    int grip = 0;                                     // pixels between the part's left edge and the pointer
    std::optional<std::wstring> text = std::nullopt;  // shown as the cell's text meanwhile
};

}  // namespace corvanes
