#include "test_windows.h"

OwnerWindow::OwnerWindow() {
    CreateEx(0, nullptr, L"owner", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr);
}

LRESULT OwnerWindow::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX && on_idle) {
        on_idle(*FromHandle(reinterpret_cast<HWND>(lParam)));
    }
    return CWnd::WindowProc(message, wParam, lParam);
}

void run_waiting_messages() {
    constexpr int kMost = 1000;  // painting that stays due would go on for ever
    MSG message;
    for (int i = 0; i < kMost && ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); ++i) {
        AfxPumpMessage();
    }
}
