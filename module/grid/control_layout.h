// The layout of the parts of a cell's control, for languages from left to right, and its mirror image. Pure. All sizes
// are in pixels; a box may be empty, but its right and bottom are never less than its left and top.
#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "bidi/text_layout.h"

namespace corvanes {

using Box = LayoutRect;

bool holds(const Box& box, int x, int y);
// The place of the part when the cell is laid out in the other direction. Mirrored twice, a part is where it was.
Box mirrored(const Box& part, const Box& cell);
int mirrored_x(int x, const Box& cell);

// The box made smaller by so many pixels at each side; an empty box in its middle when nothing would be left.
Box deflated(const Box& box, int by_x, int by_y);
// The strip at the end of a cell that holds its button, at most `width` wide; and the rest of the cell, for the text.
Box end_strip(const Box& cell, int width);
Box before_end(const Box& cell, int width);
// A box of this size, or less, in the middle of another.
Box centered(const Box& around, int width, int height);

struct SpinBoxes {
    Box up;
    Box down;
};
SpinBoxes spin_boxes(const Box& strip);

struct SliderBoxes {
    Box groove;
    Box thumb;
};
SliderBoxes slider_boxes(const Box& cell, double fraction);
// The fraction at which the thumb's left edge would be at x, from 0 to 1.
double slider_fraction(const Box& cell, int x);

// A bar, and below it, as far as there is room, ticks and numbers of this height.
struct GaugeBoxes {
    Box bar;
    Box ticks;
    Box numbers;
};
GaugeBoxes gauge_boxes(const Box& cell, bool ticks, int number_height);

// Choices in columns, each filled downwards before the next.
struct ChoiceGrid {
    int rows;
    int columns;
    bool operator==(const ChoiceGrid&) const = default;
};
ChoiceGrid choice_grid(int count, int height, int line_height);
// The boxes of the choices, as wide as the widest of their column; those beyond the cell's end are left out.
std::vector<Box> choice_boxes(const Box& cell, int count, int line_height, const std::function<int(int)>& width_of);
// The choice that lies so many columns and rows away from `now`; beyond an end the walk goes on at the other one. The
// first choice when `now` is -1, which stands for none; `now` itself when no other choice lies that way.
int next_choice(const ChoiceGrid& grid, int count, int now, int columns, int rows);

}  // namespace corvanes
