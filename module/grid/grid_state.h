// GridState, the state of a grid besides its cells: layout, current cell, selection and scroll position.
#pragma once

#include "grid/column_layout.h"
#include "grid/row_layout.h"
#include "grid/selection.h"
#include "grid/side_heading_layout.h"

namespace corvanes {

struct GridState {
    ColumnLayout columns;
    RowLayout rows;
    SideHeadingLayout side;
    Selection selection;
    int heading_height = 20;

    // -1 while there is no such column or row.
    int current_column = -1;
    int current_row = -1;
    int previous_row = -1;

    // The first row shown, and how many pixels of the columns are scrolled out to the left.
    int top_row = 0;
    int scroll_x = 0;

    int display_flag = 1;
    bool keeps_vertical_bar = false;
};

}  // namespace corvanes
