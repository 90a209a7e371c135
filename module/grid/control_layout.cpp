#include "grid/control_layout.h"

#include <algorithm>
#include <cmath>

namespace corvanes {

namespace {

constexpr int slider_margin = 4;
constexpr int thumb_width = 9;
constexpr int thumb_height = 17;
constexpr int groove_height = 4;

constexpr int least_bar_height = 8;
constexpr int tick_height = 4;

// The pixels over which the thumb's left edge can move.
int slider_travel(const Box& cell) {
    return std::max(0, cell.width() - 2 * slider_margin - thumb_width);
}

}  // namespace

bool holds(const Box& box, int x, int y) {
    return x >= box.left && x < box.right && y >= box.top && y < box.bottom;
}

int mirrored_x(int x, const Box& cell) {
    return cell.left + cell.right - 1 - x;
}

Box mirrored(const Box& part, const Box& cell) {
    return {cell.left + cell.right - part.right, part.top, cell.left + cell.right - part.left, part.bottom};
}

Box deflated(const Box& box, int by_x, int by_y) {
    const int x = std::min(by_x, box.width() / 2);
    const int y = std::min(by_y, box.height() / 2);
    return {box.left + x, box.top + y, box.right - x, box.bottom - y};
}

Box end_strip(const Box& cell, int width) {
    return {std::max(cell.left, cell.right - width), cell.top, cell.right, cell.bottom};
}

Box before_end(const Box& cell, int width) {
    return {cell.left, cell.top, std::max(cell.left, cell.right - width), cell.bottom};
}

Box centered(const Box& around, int width, int height) {
    const int left = around.left + std::max(0, (around.width() - width) / 2);
    const int top = around.top + std::max(0, (around.height() - height) / 2);
    return {left, top, std::min(left + width, around.right), std::min(top + height, around.bottom)};
}

SpinBoxes spin_boxes(const Box& strip) {
    const int middle = strip.top + strip.height() / 2;
    return {{strip.left, strip.top, strip.right, middle}, {strip.left, middle, strip.right, strip.bottom}};
}

SliderBoxes slider_boxes(const Box& cell, double fraction) {
    const Box thumb = centered(cell, thumb_width, thumb_height);
    const int travelled = static_cast<int>(std::lround(fraction * slider_travel(cell)));
    const int left = std::min(cell.left + slider_margin + travelled, std::max(cell.left, cell.right - thumb_width));
    return {centered(cell, std::max(0, cell.width() - 2 * slider_margin), groove_height),
            {left, thumb.top, std::min(left + thumb_width, cell.right), thumb.bottom}};
}

double slider_fraction(const Box& cell, int x) {
    const double travel = std::max(1, slider_travel(cell));
    return std::clamp((x - cell.left - slider_margin) / travel, 0.0, 1.0);
}

GaugeBoxes gauge_boxes(const Box& cell, bool ticks, int number_height) {
    const int ticks_below = ticks && cell.height() >= least_bar_height + tick_height ? tick_height : 0;
    const bool numbers = number_height > 0 && cell.height() >= least_bar_height + ticks_below + number_height;
    const int numbers_top = cell.bottom - (numbers ? number_height : 0);
    const int ticks_top = numbers_top - ticks_below;
    return {{cell.left, cell.top, cell.right, ticks_top},
            {cell.left, ticks_top, cell.right, numbers_top},
            {cell.left, numbers_top, cell.right, cell.bottom}};
}

ChoiceGrid choice_grid(int count, int height, int line_height) {
    const int fitting = std::max(1, height / std::max(1, line_height));
    const int columns = std::max(1, (count + fitting - 1) / fitting);
    return {std::max(1, (count + columns - 1) / columns), columns};
}

std::vector<Box> choice_boxes(const Box& cell, int count, int line_height, const std::function<int(int)>& width_of) {
    const ChoiceGrid grid = choice_grid(count, cell.height(), line_height);
    const int top = cell.top + std::max(0, (cell.height() - grid.rows * line_height) / 2);
    std::vector<Box> boxes;
    int left = cell.left;
    for (int first = 0; first < count && left < cell.right; first += grid.rows) {
        const int end = std::min(count, first + grid.rows);
        int right = left;
        for (int choice = first; choice < end; ++choice) {
            right = std::max(right, left + width_of(choice));
        }
        right = std::min(right, cell.right);
        for (int choice = first; choice < end; ++choice) {
            const int line_top = top + (choice - first) * line_height;
            boxes.push_back({left, line_top, right, line_top + line_height});
        }
        left = right;
    }
    return boxes;
}

int next_choice(const ChoiceGrid& grid, int count, int now, int columns, int rows) {
    if (count <= 0 || (columns != 0 && grid.columns == 1) || (rows != 0 && grid.rows == 1)) {
        return now;
    }
    if (now < 0) {
        return 0;
    }
    if (rows != 0) {
        return (now + rows + count) % count;
    }
    const int row = now % grid.rows;
    const int in_row = (count - row + grid.rows - 1) / grid.rows;
    return (now / grid.rows + columns + in_row) % in_row * grid.rows + row;
}

}  // namespace corvanes
