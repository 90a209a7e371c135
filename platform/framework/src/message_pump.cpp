#include "message_pump.h"

#include "afxapp_.h"
#include "thread_state.h"

namespace framework {
namespace {

/// The message that makes the caret blink, which the system does not document.
constexpr UINT system_timer = 0x0118;

bool pre_translate(MSG& message) {
    const Scoped<int> running(thread_state().handlers_running, thread_state().handlers_running + 1);
    try {
        CWinApp* const app = AfxGetApp();
        return app ? app->PreTranslateMessage(&message) : CWnd::WalkPreTranslateTree(nullptr, &message);
    } catch (...) {
        AfxReportCurrentException();
        return true;
    }
}

}  // namespace

bool queue_is_empty() {
    MSG message;
    return !::PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);
}

bool pump_message(MSG& message) {
    const BOOL got = ::GetMessageW(&message, nullptr, 0, 0);
    if (got == -1) {
        AfxThrowResourceException();
    }
    if (got == 0) {
        thread_state().exit_code = static_cast<int>(message.wParam);
        return false;
    }
    MSG translated = message;
    if (!pre_translate(translated)) {
        ::TranslateMessage(&translated);
        ::DispatchMessageW(&translated);
    }
    return true;
}

bool is_idle_message(const MSG& message) {
    if (message.message == WM_PAINT || message.message == system_timer) {
        return false;
    }
    if (message.message != WM_MOUSEMOVE && message.message != WM_NCMOUSEMOVE) {
        return true;
    }
    auto& state = thread_state();
    const bool moved = message.message != state.last_mouse_message || message.pt.x != state.last_mouse.x ||
                       message.pt.y != state.last_mouse.y;
    state.last_mouse = message.pt;
    state.last_mouse_message = message.message;
    return moved;
}

}  // namespace framework
