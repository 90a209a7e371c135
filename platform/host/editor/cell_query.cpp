#include "platform/host/editor/cell_query.h"

namespace host {
namespace {

/// The innermost visible window at a point of a window.
WindowPoint innermost(WindowPoint at) {
    for (;;) {
        const HWND child = ChildWindowFromPointEx(at.window, at.point, CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT);
        if (child == nullptr || child == at.window) {
            return at;
        }
        MapWindowPoints(at.window, child, &at.point, 1);
        at.window = child;
    }
}

}  // namespace

std::optional<WindowPoint> find_cell(const ModalDialog& dialog, int column, int row, CellPlace place) {
    static const UINT question = RegisterWindowMessageW(L"CellRectangleQuery");
    for (const HWND window : dialog.descendants()) {
        CellRectangle cell{column, row, {}};
        if (IsWindowVisible(window) == 0 || SendMessageW(window, question, 0, reinterpret_cast<LPARAM>(&cell)) != 1) {
            continue;
        }
        const RECT& box = cell.rectangle;
        const LONG x = place == CellPlace::middle ? (box.left + box.right) / 2 : box.right - 1;
        WindowPoint at{window, {x, (box.top + box.bottom) / 2}};
        MapWindowPoints(nullptr, window, &at.point, 1);
        return innermost(at);
    }
    return std::nullopt;
}

}  // namespace host
