// Finds cells of grids in dialogs, by a question that a grid may answer.
#pragma once

#include <windows.h>

#include <optional>

#include "platform/host/editor/modal_dialog.h"

namespace host {

/// The registered message "CellRectangleQuery" carries a pointer to this in lParam (wParam is 0). A grid that has the
/// cell shows it, fills in the rectangle in screen pixels, and returns 1; every other window returns 0. Row -1 is the
/// heading.
struct CellRectangle {
    int column;
    int row;
    RECT rectangle;
};

/// A place in a window's client area.
struct WindowPoint {
    HWND window;
    POINT point;
};

enum class CellPlace {
    middle,
    right_border,  ///< the last pixel inside
};

/// Where to point for a cell of a grid in the dialog; nothing when no grid has the cell.
std::optional<WindowPoint> find_cell(const ModalDialog& dialog, int column, int row, CellPlace place);

}  // namespace host
