#include <windows.h>

#include "base/code_page.h"
#include "base/code_page_system.h"

namespace base {

unsigned system_code_page() {
    return GetACP();
}

unsigned code_page_width(unsigned code_page) {
    CPINFO info{};
    return GetCPInfo(code_page, &info) ? info.MaxCharSize : 0;
}

std::optional<std::wstring> system_decode(std::string_view bytes, unsigned code_page) {
    if (bytes.empty()) {
        return std::wstring();
    }
    const int length = static_cast<int>(bytes.size());
    const int needed = MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, bytes.data(), length, nullptr, 0);
    if (needed <= 0) {
        return std::nullopt;
    }
    std::wstring text(static_cast<size_t>(needed), L'\0');
    MultiByteToWideChar(code_page, MB_ERR_INVALID_CHARS, bytes.data(), length, text.data(), needed);
    return text;
}

std::optional<std::string> system_encode(std::wstring_view text, unsigned code_page) {
    if (text.empty()) {
        return std::string();
    }
    const int length = static_cast<int>(text.size());
    BOOL replaced = FALSE;
    const int needed =
        WideCharToMultiByte(code_page, WC_NO_BEST_FIT_CHARS, text.data(), length, nullptr, 0, nullptr, &replaced);
    if (needed <= 0 || replaced) {
        return std::nullopt;
    }
    std::string bytes(static_cast<size_t>(needed), '\0');
    WideCharToMultiByte(code_page, WC_NO_BEST_FIT_CHARS, text.data(), length, bytes.data(), needed, nullptr, &replaced);
    return replaced ? std::nullopt : std::optional(bytes);
}

}  // namespace base
