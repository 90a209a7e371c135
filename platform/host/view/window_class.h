// Window classes of the host, and what any window says of itself.
#pragma once

#include <windows.h>

#include <string>

namespace host {

/// The library that holds the host's window procedures.
HINSTANCE host_instance();

/// Registers a class, once in a process; `background` is a system colour (COLOR_WINDOW...).
void register_window_class(const wchar_t* name, WNDPROC procedure, int background);

/// Whether a window is a button of any kind; check boxes are.
bool is_button(HWND window);
/// The title, or a control's text, as the window itself gives it.
std::wstring window_text(HWND window);
std::wstring window_class_name(HWND window);

}  // namespace host
