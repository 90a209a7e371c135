// CWnd: what is done with messages before they are dispatched, and the modal loop.
#include "afxwin.h"

#include "message_pump.h"
#include "thread_state.h"

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}

BOOL CWnd::WalkPreTranslateTree(HWND stop, MSG* message) {
    for (HWND window = message->hwnd; window; window = ::GetParent(window)) {
        CWnd* const object = FromHandlePermanent(window);
        if (object && object->PreTranslateMessage(message)) {
            return TRUE;
        }
        if (window == stop) {
            break;
        }
    }
    return FALSE;
}

BOOL CWnd::PreTranslateInput(MSG* message) {
    const UINT number = message->message;
    const bool is_key = number >= WM_KEYFIRST && number <= WM_KEYLAST;
    const bool is_mouse = number >= WM_MOUSEFIRST && number <= WM_MOUSELAST;
    return (is_key || is_mouse) && ::IsDialogMessageW(m_hWnd, message);
}

void CWnd::EndModalLoop(int result) {
    modal_result_ = result;
    if (std::exchange(continue_modal_, false)) {
        PostMessage(WM_NULL);
    }
}

int CWnd::RunModalLoop() {
    const framework::Scoped<bool> running(in_modal_loop_, true);
    continue_modal_ = true;
    modal_result_ = -1;
    bool show = !IsWindowVisible();
    const auto show_now = [&] {
        if (std::exchange(show, false) && m_hWnd) {
            ShowWindow(SW_SHOWNORMAL);
            UpdateWindow();
        }
    };

    bool idle_due = true;
    while (continue_modal_) {
        if (idle_due && framework::queue_is_empty()) {
            idle_due = false;
            show_now();
            const HWND parent = ::GetParent(m_hWnd);
            if (parent) {
                ::SendMessageW(parent, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            }
            continue;
        }
        MSG message;
        if (!framework::pump_message(message)) {
            // The loop below this one must end too.
            ::PostQuitMessage(framework::thread_state().exit_code);
            continue_modal_ = false;
            return -1;
        }
        // A key for the menu shows it, which needs the window.
        if (message.message == WM_SYSKEYDOWN) {
            show_now();
        }
        idle_due = idle_due || framework::is_idle_message(message);
    }
    return modal_result_;
}
