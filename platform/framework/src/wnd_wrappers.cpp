// CWnd: the functions that do a little more than pass the handle to the system.
#include "afxwin.h"

#include "thread_state.h"

namespace {

HWND handle_of(const CWnd* window) {
    return window ? window->m_hWnd : nullptr;
}

CRect work_area_of(HWND window) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof(monitor);
    ::GetMonitorInfoW(::MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

void CWnd::GetWindowText(CString& text) const {
    const int length = GetWindowTextLength();
    ::GetWindowTextW(m_hWnd, text.GetBuffer(length + 1), length + 1);
    text.ReleaseBuffer();
}

void CWnd::SetFont(CFont* font, BOOL redraw) {
    SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font ? font->m_hObject : nullptr), redraw);
}

CFont* CWnd::GetFont() const {
    return CFont::FromHandle(reinterpret_cast<HFONT>(SendMessage(WM_GETFONT)));
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(const RECT* rect, BOOL repaint) {
    MoveWindow(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top, repaint);
}

BOOL CWnd::SetWindowPos(const CWnd* after, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(m_hWnd, handle_of(after), x, y, width, height, flags);
}

void CWnd::ScreenToClient(RECT* rect) const {
    ::MapWindowPoints(nullptr, m_hWnd, reinterpret_cast<POINT*>(rect), 2);
}

void CWnd::CenterWindow(CWnd* over) {
    const bool is_child = GetStyle() & WS_CHILD;
    HWND center = handle_of(over);
    if (!center) {
        center = is_child ? ::GetParent(m_hWnd) : ::GetWindow(m_hWnd, GW_OWNER);
    }
    CRect own, around, limits;
    GetWindowRect(own);
    if (is_child) {
        ::GetClientRect(::GetParent(m_hWnd), limits);
        ::GetClientRect(center, around);
        ::MapWindowPoints(center, ::GetParent(m_hWnd), reinterpret_cast<POINT*>(static_cast<RECT*>(around)), 2);
    } else {
        limits = work_area_of(center ? center : m_hWnd);
        around = limits;
        if (center && ::IsWindowVisible(center) && !::IsIconic(center)) {
            ::GetWindowRect(center, around);
        }
    }
    const CPoint middle = around.CenterPoint();
    // When the window is larger than the limits, its top left corner stays inside.
    const int x =
        std::max(std::min<int>(middle.x - own.Width() / 2, limits.right - own.Width()), static_cast<int>(limits.left));
    const int y = std::max(std::min<int>(middle.y - own.Height() / 2, limits.bottom - own.Height()),
                           static_cast<int>(limits.top));
    SetWindowPos(nullptr, x, y, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

CWnd* CWnd::GetTopLevelParent() const {
    HWND window = m_hWnd;
    while (const HWND parent = ::GetParent(window)) {
        window = parent;
    }
    return FromHandle(window);
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessageW(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::PostMessageW(m_hWnd, message, wParam, lParam);
}

UINT_PTR CWnd::SetTimer(UINT_PTR id, UINT milliseconds, TIMERPROC procedure) {
    return ::SetTimer(m_hWnd, id, milliseconds, procedure);
}

BOOL CWnd::RedrawWindow(const RECT* rect, HRGN region, UINT flags) {
    return ::RedrawWindow(m_hWnd, rect, region, flags);
}

int CWnd::SetScrollPos(int bar, int position, BOOL redraw) {
    return ::SetScrollPos(m_hWnd, bar, position, redraw);
}

void CWnd::SetScrollRange(int bar, int first, int last, BOOL redraw) {
    ::SetScrollRange(m_hWnd, bar, first, last, redraw);
}

CPoint CWnd::GetCaretPos() {
    CPoint position;
    ::GetCaretPos(&position);
    return position;
}
