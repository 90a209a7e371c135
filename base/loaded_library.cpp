#include "base/loaded_library.h"

namespace base {

LoadedLibrary LoadedLibrary::load(const std::wstring& file) {
    const bool has_folder = file.find_first_of(L"\\/") != std::wstring::npos;
    LoadedLibrary loaded;
    loaded.library_.reset(LoadLibraryExW(file.c_str(), nullptr, has_folder ? LOAD_WITH_ALTERED_SEARCH_PATH : 0));
    return loaded;
}

std::wstring system_message(DWORD error) {
    wchar_t buffer[512];
    const DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                                        buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
    std::wstring text(buffer, length);
    while (!text.empty() && (text.back() == L'\n' || text.back() == L'\r' || text.back() == L'.')) {
        text.pop_back();
    }
    return text.empty() ? L"error " + std::to_wstring(error) : text;
}

}  // namespace base
