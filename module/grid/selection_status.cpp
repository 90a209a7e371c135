#include "grid/selection_status.h"

#include "grid/cell_text.h"

namespace corvanes {

namespace {

constexpr UINT status_id = 0xFFFE;

// The place for a line under the grid, in pixels of the parent; empty when another window stands there.
RECT place_below(const CWnd& grid, int height) {
    const HWND parent = ::GetParent(grid.m_hWnd);
    CRect place;
    RECT client;
    grid.GetWindowRect(place);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    ::GetClientRect(parent, &client);
    place.top = place.bottom + 1;
    place.bottom = place.top + height;
    for (const LONG x : {place.left, (place.left + place.right) / 2, place.right - 1}) {
        for (const LONG y : {place.top, place.bottom - 1}) {
            const HWND there = ::ChildWindowFromPointEx(parent, {x, y}, CWP_SKIPINVISIBLE);
            if (y >= client.bottom || (there != nullptr && there != parent && ::GetDlgCtrlID(there) != status_id)) {
                return {0, 0, 0, 0};
            }
        }
    }
    return place;
}

}  // namespace

void SelectionStatus::Show(CWnd& grid, HFONT font, const std::wstring& text) {
    CWnd* const parent = grid.GetParent();
    if (text.empty() || parent == nullptr) {
        return Hide();
    }
    if (line_.m_hWnd == nullptr &&
        !line_.Create(L"", WS_CHILD | SS_LEFTNOWORDWRAP | SS_NOPREFIX, CRect(0, 0, 0, 0), parent, status_id)) {
        return;
    }
    CClientDC dc(&line_);
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, font);
    const int height = static_cast<int>(text_size(dc, text).cy);
    ::SelectObject(dc.m_hDC, former);
    const RECT place = place_below(grid, height);
    if (::IsRectEmpty(&place) != 0) {
        return Hide();
    }
    line_.SendMessage(WM_SETFONT, reinterpret_cast<WPARAM>(font));
    line_.SetWindowText(text.c_str());
    ::SetWindowPos(line_.m_hWnd, HWND_BOTTOM, place.left, place.top, place.right - place.left, height,
                   SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void SelectionStatus::Hide() {
    if (shown()) {
        line_.ShowWindow(SW_HIDE);
    }
}

}  // namespace corvanes
