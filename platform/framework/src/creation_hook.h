// Attaches an object to the next window that the thread creates, before the window gets its first message.
#pragma once

#include "thread_state.h"

/// Lives around one call that creates a window.
class CreationHook {
  public:
    explicit CreationHook(CWnd* object);
    ~CreationHook();
    CreationHook(const CreationHook&) = delete;
    CreationHook& operator=(const CreationHook&) = delete;

    /// Whether a window was created, even if it and the object are gone already.
    bool window_came() const { return framework::thread_state().being_created == nullptr; }

  private:
    static LRESULT CALLBACK procedure(int code, WPARAM wParam, LPARAM lParam);
    /// False when the object refuses the window by an exception.
    static bool take_window(CWnd* object, HWND window);

    framework::Scoped<CWnd*> being_created_;
    HHOOK hook_;
};
