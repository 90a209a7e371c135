// Text on the system's clipboard.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace corvanes {

/// Puts a text there as CF_UNICODETEXT, its line feeds as CR LF. False when the clipboard is not to be had.
bool put_clipboard_text(HWND owner, std::wstring_view text);

/// The clipboard's text as it is there, or nothing when it holds none.
std::optional<std::wstring> clipboard_text(HWND owner);

bool clipboard_has_text();

}  // namespace corvanes
