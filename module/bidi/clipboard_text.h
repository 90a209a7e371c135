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

/// Replaces the clipboard's content by these forms, of which the best comes first. False when the clipboard cannot be
/// opened.
bool put_clipboard(HWND owner, const std::vector<ClipboardForm>& forms);

/// The form CF_UNICODETEXT of a text, which must outlive it.
ClipboardForm clipboard_form(const std::wstring& text);

/// Replaces the clipboard's content by a text as CF_UNICODETEXT, with line ends as CR LF. False when the clipboard
/// cannot be opened.
bool put_clipboard_text(HWND owner, std::wstring_view text);

/// The clipboard's text, unchanged; nothing when it holds none.
std::optional<std::wstring> clipboard_text(HWND owner);

bool clipboard_has_text();

}  // namespace corvanes
