// Text on the system's clipboard.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanes {

/// One format of what goes to the clipboard, with its bytes; a format that has a terminator includes it.
struct ClipboardForm {
    UINT format;
    std::string_view bytes;
};

/// Puts the forms there, the best first, in place of what was there. False when the clipboard is not to be had.
bool put_clipboard(HWND owner, const std::vector<ClipboardForm>& forms);

/// The form CF_UNICODETEXT of a text, which must outlive it.
ClipboardForm clipboard_form(const std::wstring& text);

/// Puts a text there as CF_UNICODETEXT, its line ends as CR LF. False when the clipboard is not to be had.
bool put_clipboard_text(HWND owner, std::wstring_view text);

/// The clipboard's text as it is there, or nothing when it holds none.
std::optional<std::wstring> clipboard_text(HWND owner);

bool clipboard_has_text();

}  // namespace corvanes
