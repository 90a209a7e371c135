#include "grid/hint_window.h"

#include <algorithm>
#include <string>
#include <vector>

#include "grid/cell_text.h"
#include "grid/fitted_text.h"

namespace corvanes {

namespace {

// The greatest width of a hint's line, in pixels; a longer line is broken at blanks.
constexpr int widest_line = 600;
constexpr int frame = 1;
// Pixels between a cell and its hint.
constexpr int distance = 2;

RECT work_area(const RECT& near_place) {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    ::GetMonitorInfoW(::MonitorFromRect(&near_place, MONITOR_DEFAULTTONEAREST), &monitor);
    return monitor.rcWork;
}

}  // namespace

BEGIN_MESSAGE_MAP(HintWindow, CWnd)
    ON_WM_PAINT()
    ON_WM_ERASEBKGND()
    ON_MESSAGE(WM_NCHITTEST, &HintWindow::OnHitTest)
END_MESSAGE_MAP()

void HintWindow::Show(CWnd& owner, const RECT& cell, const wchar_t* text, HFONT font) {
    constexpr DWORD edge = WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE;
    if (m_hWnd == nullptr &&
        !CreateEx(edge, AfxRegisterWndClass(0), L"", WS_POPUP, CRect(0, 0, 0, 0), owner.GetTopLevelParent(), 0)) {
        return;
    }
    font_ = font;
    CClientDC dc(this);
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, font_);
    const RECT screen = work_area(cell);
    text_ = wrapped_text(text, std::min<int>(widest_line, screen.right - screen.left) - 2 * cell_text_margin,
                         [&dc](std::wstring_view part) { return text_width(dc, part); })
                .c_str();
    const SIZE inside = text_size(dc, text_.GetString());
    ::SelectObject(dc.m_hDC, former);
    const int width = static_cast<int>(inside.cx) + 2 * (cell_text_margin + frame);
    const int height = static_cast<int>(inside.cy) + 2 * frame;
    const int left = std::max<int>(screen.left, std::min<int>(cell.left, screen.right - width));
    const bool below = cell.bottom + distance + height <= screen.bottom;
    const int top = below ? cell.bottom + distance : std::max<int>(screen.top, cell.top - distance - height);
    ::SetWindowPos(m_hWnd, HWND_TOPMOST, left, top, width, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
    Invalidate(FALSE);
}

void HintWindow::Hide() {
    if (shown()) {
        ShowWindow(SW_HIDE);
    }
}

void HintWindow::OnPaint() {
    CPaintDC dc(this);
    RECT client;
    GetClientRect(&client);
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, font_);
    dc.FillSolidRect(&client, ::GetSysColor(COLOR_INFOTEXT));
    ::InflateRect(&client, -frame, -frame);
    DrawCellText(dc, client, text_, {::GetSysColor(COLOR_INFOTEXT), ::GetSysColor(COLOR_INFOBK)});
    ::SelectObject(dc.m_hDC, former);
}

BOOL HintWindow::OnEraseBkgnd(CDC*) {
    return TRUE;
}

// Clicks go through to the window below.
LRESULT HintWindow::OnHitTest(WPARAM, LPARAM) {
    return HTTRANSPARENT;
}

}  // namespace corvanes
