#include "platform/host/editor/history.h"

#include <windows.h>

#include "base/code_page.h"
#include "platform/host/editor/main_window.h"

namespace host {

void History::print(std::wstring_view text) const {
    if (window_ != nullptr) {
        window_->append_history(text);
    }
    if (echo_) {
        write_standard_error(text);
    }
}

void write_standard_error(std::wstring_view text) {
    const std::string bytes = base::utf8_from_wide(text);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace host
