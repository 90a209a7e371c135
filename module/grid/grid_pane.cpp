#include "grid/grid_pane.h"

#include <algorithm>

#include "grid/cell_grid.h"

namespace corvanes {

BEGIN_MESSAGE_MAP(GridPane, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_MOUSEWHEEL, &GridPane::OnWheel)
    ON_MESSAGE(WM_MOUSEHWHEEL, &GridPane::OnWheel)
END_MESSAGE_MAP()

bool GridPane::Create(CellGrid& grid, UINT id, bool double_clicks) {
    grid_ = &grid;
    place_ = {0, 0, 0, 0};
    redraw_due_ = false;
    const LPCWSTR window_class = AfxRegisterWndClass(double_clicks ? CS_DBLCLKS : 0, ::LoadCursorW(nullptr, IDC_ARROW));
    return CWnd::Create(window_class, L"", WS_CHILD | WS_CLIPSIBLINGS, CRect(0, 0, 0, 0), &grid, id) != FALSE;
}

GridState& GridPane::state() const {
    return grid_->state();
}

void GridPane::Redraw() {
    OnContentChanged();
    // An empty window is never painted, so for it nothing may stay due.
    if (!redraw_due_ && m_hWnd != nullptr && ::IsRectEmpty(&place_) == 0) {
        redraw_due_ = true;
        ::InvalidateRect(m_hWnd, nullptr, FALSE);
    }
}

void GridPane::RedrawPart(const RECT& part) {
    OnContentChanged();
    if (!redraw_due_ && m_hWnd != nullptr && ::IsRectEmpty(&part) == 0) {
        ::InvalidateRect(m_hWnd, &part, FALSE);
    }
}

void GridPane::Place(const RECT& place) {
    if (::EqualRect(&place, &place_) != 0) {
        return;
    }
    place_ = place;
    const bool shown = ::IsRectEmpty(&place_) == 0;
    redraw_due_ = false;
    ::SetWindowPos(m_hWnd, nullptr, place.left, place.top, width(), height(),
                   SWP_NOZORDER | SWP_NOACTIVATE | (shown ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
    Redraw();
}

void GridPane::PrepareBuffer(CDC& screen) {
    if (buffer_.m_hDC == nullptr) {
        buffer_.CreateCompatibleDC(&screen);
    }
    if (bitmap_size_.cx >= width() && bitmap_size_.cy >= height() && bitmap_.m_hObject != nullptr) {
        return;
    }
    CBitmap larger;
    const SIZE size{std::max<LONG>(bitmap_size_.cx, width()), std::max<LONG>(bitmap_size_.cy, height())};
    larger.CreateCompatibleBitmap(&screen, size.cx, size.cy);
    buffer_.SelectObject(&larger);
    bitmap_.DeleteObject();
    bitmap_.Attach(larger.Detach());
    bitmap_size_ = size;
}

void GridPane::OnPaint() {
    grid_->UpdateLayout();
    redraw_due_ = false;
    CPaintDC screen(this);
    const RECT dirty = screen.m_ps.rcPaint;
    if (::IsRectEmpty(&dirty) != 0) {
        return;
    }
    PrepareBuffer(screen);
    const int saved = buffer_.SaveDC();
    ::IntersectClipRect(buffer_.m_hDC, dirty.left, dirty.top, dirty.right, dirty.bottom);
    ::SelectObject(buffer_.m_hDC, grid_->GetGridFont());
    Paint(buffer_, dirty);
    screen.BitBlt(dirty.left, dirty.top, dirty.right - dirty.left, dirty.bottom - dirty.top, &buffer_, dirty.left,
                  dirty.top, SRCCOPY);
    buffer_.RestoreDC(saved);
}

BOOL GridPane::OnEraseBkgnd(CDC*) {
    return TRUE;
}

LRESULT GridPane::OnWheel(WPARAM turn, LPARAM point) {
    return grid_->SendMessage(GetCurrentMessage()->message, turn, point);
}

void GridPane::PaintHeadingCell(CDC& dc, const RECT& cell, int column, int row, const wchar_t* text_if_none,
                                bool pressed) {
    RECT inside = cell;
    ::DrawEdge(dc.m_hDC, &inside, pressed ? BDR_SUNKENOUTER : EDGE_RAISED, BF_RECT | BF_MIDDLE | BF_ADJUST | BF_SOFT);
    if (pressed) {
        inside.left += 2;
        inside.top += 2;
    }
    if (inside.left >= inside.right || inside.top >= inside.bottom) {
        return;
    }
    CUGCell record;
    grid_->GetCell(column, row, &record);
    if (record.GetText() == nullptr && text_if_none != nullptr) {
        record.SetText(text_if_none);
    }
    const CellLook look{::GetSysColor(COLOR_BTNTEXT), ::GetSysColor(COLOR_BTNFACE)};
    grid_->CellType(record.GetCellType()).OnDraw(dc, inside, record, look);
}

}  // namespace corvanes
