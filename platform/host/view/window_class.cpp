#include "platform/host/view/window_class.h"

namespace host {

HINSTANCE host_instance() {
    HMODULE library = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&host_instance), &library);
    return library;
}

void register_window_class(const wchar_t* name, WNDPROC procedure, int background) {
    WNDCLASSEXW description{};
    description.cbSize = sizeof description;
    description.style = CS_HREDRAW | CS_VREDRAW;
    description.lpfnWndProc = procedure;
    description.hInstance = host_instance();
    description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    description.hbrBackground = GetSysColorBrush(background);
    description.lpszClassName = name;
    RegisterClassExW(&description);  // fails only where the class is registered already
}

bool is_button(HWND window) {
    constexpr LRESULT button_kinds = DLGC_BUTTON | DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
    return (SendMessageW(window, WM_GETDLGCODE, 0, 0) & button_kinds) != 0;
}

std::wstring window_text(HWND window) {
    std::wstring text(static_cast<size_t>(SendMessageW(window, WM_GETTEXTLENGTH, 0, 0)), L'\0');
    if (!text.empty()) {
        const LRESULT copied = SendMessageW(window, WM_GETTEXT, text.size() + 1, reinterpret_cast<LPARAM>(text.data()));
        text.resize(static_cast<size_t>(copied));
    }
    return text;
}

std::wstring window_class_name(HWND window) {
    wchar_t name[64];
    return std::wstring(name, static_cast<size_t>(GetClassNameW(window, name, static_cast<int>(std::size(name)))));
}

}  // namespace host
