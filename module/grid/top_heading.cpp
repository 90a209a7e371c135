#include "grid/top_heading.h"

#include <algorithm>

#include "grid/cell_grid.h"
#include "grid/grid_command.h"

using namespace corvanes;

namespace {

// How far from a border, in pixels, the pointer still takes hold of it.
constexpr int border_reach = 3;

}  // namespace

BEGIN_MESSAGE_MAP(CUGTopHdg, GridPane)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_SETCURSOR()
    ON_WM_CAPTURECHANGED()
    ON_WM_CONTEXTMENU()
    ON_MESSAGE(WM_LBUTTONDBLCLK, &CUGTopHdg::OnDoubleClick)
END_MESSAGE_MAP()

RECT CUGTopHdg::CellRectangle(int column) const {
    const ColumnLayout& columns = state().columns;
    if (!columns.contains(column) || columns.shown_width(column) == 0) {
        return {0, 0, 0, 0};
    }
    const int left = columns.left(column) - state().scroll_x;
    const RECT cell{left, 0, left + columns.shown_width(column), height()};
    return cell.right > 0 && left < width() ? cell : RECT{0, 0, 0, 0};
}

void CUGTopHdg::Paint(CDC& dc, const RECT& dirty) {
    const ColumnLayout& columns = state().columns;
    int right = -state().scroll_x;
    const int first = std::max(0, columns.at(static_cast<int>(dirty.left) + state().scroll_x));
    for (int column = first; column < columns.count(); ++column) {
        const int left = columns.left(column) - state().scroll_x;
        right = left + columns.shown_width(column);
        if (left >= dirty.right) {
            break;
        }
        if (right > left) {
            PaintHeadingCell(dc, {left, 0, right, height()}, column, -1, nullptr, column == pressed_);
        }
    }
    const RECT rest{std::max<LONG>(right, dirty.left), dirty.top, dirty.right, dirty.bottom};
    if (::IsRectEmpty(&rest) == 0) {
        dc.FillSolidRect(&rest, ::GetSysColor(COLOR_BTNFACE));
    }
}

int CUGTopHdg::BorderAt(POINT point) const {
    return state().columns.border_at(point.x + state().scroll_x, border_reach);
}

void CUGTopHdg::Notify(int column, int updn, POINT point) {
    RECT cell = CellRectangle(column);
    grid().OnGridHeadingClick(column, -1, updn, &cell, &point, 0);
}

void CUGTopHdg::ClickColumn(int column) {
    const RECT cell = CellRectangle(column);
    const POINT middle{(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
    Notify(column, 1, middle);
    Notify(column, 0, middle);
}

void CUGTopHdg::OnLButtonDown(UINT, CPoint point) {
    if (!grid().TakeFocus(grid())) {
        return;
    }
    grid().UpdateLayout();
    sizing_ = BorderAt(point);
    const int column = state().columns.at(point.x + state().scroll_x);
    if (sizing_ < 0 && column < 0) {
        return;
    }
    SetCapture();
    if (sizing_ >= 0) {
        grip_ = point.x + state().scroll_x - state().columns.left(sizing_ + 1);
        return;
    }
    pressed_ = column;
    RedrawPart(CellRectangle(column));
    Notify(column, 1, point);
}

void CUGTopHdg::OnLButtonUp(UINT, CPoint point) {
    const int released = pressed_;
    sizing_ = -1;
    pressed_ = -1;
    if (::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
    }
    if (released >= 0) {
        Redraw();
        Notify(released, 0, point);
    }
}

void CUGTopHdg::OnMouseMove(UINT keys, CPoint point) {
    if (sizing_ < 0 || (keys & MK_LBUTTON) == 0) {
        return;
    }
    const int edge = point.x + state().scroll_x - grip_;
    grid().OfferColumnWidth(sizing_, edge - state().columns.left(sizing_));
}

// A second click on a border fits its column; anywhere else it is a click like the first.
LRESULT CUGTopHdg::OnDoubleClick(WPARAM keys, LPARAM point) {
    const int column = BorderAt(CPoint(point));
    if (column < 0) {
        OnLButtonDown(static_cast<UINT>(keys), CPoint(point));
    } else if (grid().TakeFocus(grid())) {
        grid().Commands().Run(GridCommand::fit_column, column);
    }
    return 0;
}

void CUGTopHdg::OnContextMenu(CWnd*, CPoint point) {
    CPoint inside = point;
    ScreenToClient(&inside);
    if (grid().TakeFocus(grid())) {
        grid().Commands().ShowMenu(*this, point, state().columns.at(inside.x + state().scroll_x));
    }
}

BOOL CUGTopHdg::OnSetCursor(CWnd*, UINT, UINT) {
    POINT point{};
    ::GetCursorPos(&point);
    ::ScreenToClient(m_hWnd, &point);
    const bool on_border = sizing_ >= 0 || BorderAt(point) >= 0;
    ::SetCursor(::LoadCursorW(nullptr, on_border ? IDC_SIZEWE : IDC_ARROW));
    return TRUE;
}

void CUGTopHdg::OnCaptureChanged(CWnd*) {
    if (pressed_ >= 0) {
        Redraw();
    }
    sizing_ = -1;
    pressed_ = -1;
}
