// The procedure of all windows that belong to an object.
#pragma once

#include "thread_state.h"

class WindowProcedure {
  public:
    /// Hands the message to the window's object. An exception ends here: it is reported, and the message counts as
    /// refused (creation) or done (anything else).
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

  private:
    static LRESULT after_exception(HWND window, UINT message) noexcept;
};
