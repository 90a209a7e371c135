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
    int part;                                         // the part, as the type numbers parts
    bool by_key = false;                              // held by the space bar, else by the left button
    bool over = true;                                 // whether the pointer is over the part
    int grip = 0;                                     // the pixels between the part's left edge and the pointer
    std::optional<std::wstring> text = std::nullopt;  // shown as the cell's text meanwhile
};

}  // namespace corvanes
