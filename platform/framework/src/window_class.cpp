#include <set>
#include <sstream>
#include <string>

#include "afxapp_.h"

LPCWSTR AfxRegisterWndClass(UINT style, HCURSOR cursor, HBRUSH background, HICON icon) {
    // The names that were given out stay valid.
    static std::set<std::wstring> names;
    std::wostringstream name;
    name << L"Afx:" << style << L':' << cursor << L':' << background << L':' << icon;
    const auto [entry, is_new] = names.insert(name.str());
    if (is_new) {
        WNDCLASSW description{};
        description.style = style;
        description.lpfnWndProc = ::DefWindowProcW;
        description.hInstance = AfxGetInstanceHandle();
        description.hCursor = cursor;
        description.hbrBackground = background;
        description.hIcon = icon;
        description.lpszClassName = entry->c_str();
        if (!::RegisterClassW(&description)) {
            names.erase(entry);
            AfxThrowResourceException();
        }
    }
    return entry->c_str();
}
