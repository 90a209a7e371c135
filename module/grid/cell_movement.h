// The cells to which movements of the current cell lead.
#pragma once

#include <optional>

namespace corvanes {

// The directions of a row movement, by the numbers that the grid's callers pass.
enum RowMovement { row_up = 0, row_down = 1, page_up = 2, page_down = 3, first_row = 4, last_row = 5 };

// The row that a movement from `current` reaches in a grid of `rows` rows whose pages hold `page` rows: stopped at the
// first and the last row. Nothing for a direction that does not exist and for a grid without rows.
std::optional<int> row_after(int direction, int current, int rows, int page);

// The column `steps` to the right (to the left when below 0) of `current` among those that `shown` says are visible;
// `current` itself when there is none that far. Hidden columns are passed over.
template <class Shown>
int column_after(int steps, int current, int columns, const Shown& shown) {
    const int direction = steps < 0 ? -1 : 1;
    int reached = current;
    for (int column = current + direction; steps != 0 && column >= 0 && column < columns; column += direction) {
        if (shown(column)) {
            reached = column;
            steps -= direction;
        }
    }
    return reached;
}

}  // namespace corvanes
