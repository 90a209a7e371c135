#include "grid/cell_movement.h"

#include <algorithm>

namespace corvanes {

std::optional<int> row_after(int direction, int current, int rows, int page) {
    if (rows <= 0) {
        return std::nullopt;
    }
    long long row = current;
    switch (direction) {
        case row_up:
            row -= 1;
            break;
        case row_down:
            row += 1;
            break;
        case page_up:
            row -= page;
            break;
        case page_down:
            row += page;
            break;
        case first_row:
            row = 0;
            break;
        case last_row:
            row = rows - 1;
            break;
        default:
            return std::nullopt;
    }
    return static_cast<int>(std::clamp<long long>(row, 0, rows - 1));
}

}  // namespace corvanes
