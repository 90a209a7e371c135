#include "creation_hook.h"

#include <cwchar>

using framework::thread_state;

namespace {

/// The system makes its input-method window just before a thread's first own one.
bool is_input_method_window(HWND window) {
    wchar_t name[8] = {};
    ::GetClassNameW(window, name, 8);
    return _wcsicmp(name, L"IME") == 0;
}

}  // namespace

CreationHook::CreationHook(CWnd* object)
    : being_created_(thread_state().being_created, object),
      hook_(::SetWindowsHookExW(WH_CBT, procedure, nullptr, ::GetCurrentThreadId())) {
    if (!hook_) {
        AfxThrowResourceException();
    }
}

CreationHook::~CreationHook() {
    ::UnhookWindowsHookEx(hook_);
}

LRESULT CALLBACK CreationHook::procedure(int code, WPARAM wParam, LPARAM lParam) {
    CWnd*& waiting = thread_state().being_created;
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND && waiting && !is_input_method_window(window)) {
        if (!take_window(std::exchange(waiting, nullptr), window)) {
            return 1;
        }
    }
    return ::CallNextHookEx(nullptr, code, wParam, lParam);
}

bool CreationHook::take_window(CWnd* object, HWND window) {
    try {
        if (!object->Attach(window)) {
            return false;
        }
        object->PreSubclassWindow();
        object->take_over_messages();
        return true;
    } catch (...) {
        // A window that the hook refuses is destroyed without a message.
        object->Detach();
        AfxReportCurrentException();
        return false;
    }
}
