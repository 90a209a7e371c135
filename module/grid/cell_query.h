// The message by which any program asks a grid window where one of its cells stands on the screen.
#pragma once

#include <windows.h>

namespace corvanes {

// Sent to the grid's window as the message that RegisterWindowMessage(cell_rectangle_query_message) gives, with the
// address of a CellRectangleQuery in lParam. The grid scrolls the cell into view, fills in `rect` (in screen pixels)
// and answers 1; 0 when there is no such cell. Row -1 is the top heading, column -1 the side heading.
constexpr wchar_t cell_rectangle_query_message[] = L"CellRectangleQuery";

struct CellRectangleQuery {
    int column;
    int row;
    RECT rect;
};

}  // namespace corvanes
