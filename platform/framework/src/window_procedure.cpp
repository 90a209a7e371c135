#include "window_procedure.h"

using framework::Scoped;
using framework::thread_state;

LRESULT CALLBACK WindowProcedure::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    auto& state = thread_state();
    CWnd* const object = state.windows.owner(window);
    if (!object) {
        return ::DefWindowProcW(window, message, wParam, lParam);
    }
    const Scoped<MSG> handled(state.handled, MSG{window, message, wParam, lParam, 0, {}});
    const Scoped<int> running(state.handlers_running, state.handlers_running + 1);
    try {
        return object->WindowProc(message, wParam, lParam);
    } catch (...) {
        return after_exception(window, message);
    }
}

LRESULT WindowProcedure::after_exception(HWND window, UINT message) noexcept {
    // The report runs messages, and would run the painting that failed again if that stayed due.
    if (message == WM_PAINT) {
        ::ValidateRect(window, nullptr);
    }
    AfxReportCurrentException();
    if (message == WM_NCDESTROY) {
        try {
            if (CWnd* const object = thread_state().windows.owner(window)) {
                object->CWnd::OnNcDestroy();
            }
        } catch (...) {
            AfxReportCurrentException();
        }
    }
    return message == WM_CREATE ? -1 : 0;
}
