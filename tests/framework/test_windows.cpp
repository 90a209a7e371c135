#include "test_windows.h"

BEGIN_MESSAGE_MAP(OwnerWindow, CWnd)
    ON_WM_ENTERIDLE()
END_MESSAGE_MAP()

OwnerWindow::OwnerWindow() {
    CreateEx(0, nullptr, L"owner", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr);
}

void OwnerWindow::OnEnterIdle(UINT why, CWnd* dialog) {
    if (why == MSGF_DIALOGBOX && on_idle) {
        on_idle(*dialog);
    }
}

void run_waiting_messages() {
    constexpr int kMost = 1000;  // painting that stays due would go on for ever
    MSG message;
    for (int i = 0; i < kMost && ::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE); ++i) {
        AfxPumpMessage();
    }
}
