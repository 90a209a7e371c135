#include "platform/host/editor/modal_dialog.h"

#include "platform/host/editor/script.h"
#include "platform/host/view/window_class.h"

namespace host {
namespace {

BOOL CALLBACK note_dialog(HWND window, LPARAM found) {
    if (IsWindowVisible(window) == 0 || IsWindowEnabled(window) == 0 || window_class_name(window) != L"#32770") {
        return TRUE;
    }
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// The system's own dialog procedure runs it.
bool is_system_dialog(HWND window) {
    const auto procedure = reinterpret_cast<LPCWSTR>(GetWindowLongPtrW(window, DWLP_DLGPROC));
    HMODULE owner = nullptr;
    return GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                              procedure, &owner) != 0 &&
           owner == GetModuleHandleW(L"user32.dll");
}

BOOL CALLBACK note_child(HWND window, LPARAM children) {
    reinterpret_cast<std::vector<HWND>*>(children)->push_back(window);
    return TRUE;
}

/// The innermost visible window at a point of a window.
WindowPoint innermost(WindowPoint at) {
    for (;;) {
        const HWND child = ChildWindowFromPointEx(at.window, at.point, CWP_SKIPINVISIBLE | CWP_SKIPTRANSPARENT);
        if (child == nullptr || child == at.window) {
            return at;
        }
        MapWindowPoints(at.window, child, &at.point, 1);
        at.window = child;
    }
}

}  // namespace

std::optional<ModalDialog> ModalDialog::find() {
    HWND found = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &note_dialog, reinterpret_cast<LPARAM>(&found));
    return found != nullptr ? std::optional<ModalDialog>(ModalDialog(found, is_system_dialog(found))) : std::nullopt;
}

std::wstring ModalDialog::title() const {
    return window_text(window_);
}

std::wstring ModalDialog::message() const {
    for (const HWND child : descendants()) {
        if (window_class_name(child) == L"Button") {
            continue;
        }
        std::wstring text = window_text(child);
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

HWND ModalDialog::control(int id) const {
    const HWND found = GetDlgItem(window_, id);
    return found != nullptr && IsWindowVisible(found) != 0 ? found : nullptr;
}

HWND ModalDialog::button(const std::wstring& caption) const {
    for (const HWND child : descendants()) {
        if (IsWindowVisible(child) != 0 && is_button(child) && plain_caption(window_text(child)) == caption) {
            return child;
        }
    }
    return nullptr;
}

HWND ModalDialog::default_button() const {
    const HWND focus = GetFocus();
    if (focus != nullptr && IsChild(window_, focus) != 0 && is_button(focus)) {
        return focus;
    }
    const LRESULT answer = SendMessageW(window_, DM_GETDEFID, 0, 0);
    return HIWORD(answer) == DC_HASDEFID ? control(LOWORD(answer)) : nullptr;
}

std::vector<HWND> ModalDialog::descendants() const {
    std::vector<HWND> children;
    EnumChildWindows(window_, &note_child, reinterpret_cast<LPARAM>(&children));
    return children;
}

std::optional<WindowPoint> ModalDialog::cell(int column, int row, CellPlace place) const {
    static const UINT question = RegisterWindowMessageW(L"CellRectangleQuery");
    for (const HWND window : descendants()) {
        CellRectangle cell{column, row, {}};
        if (IsWindowVisible(window) == 0 || SendMessageW(window, question, 0, reinterpret_cast<LPARAM>(&cell)) != 1) {
            continue;
        }
        const RECT& box = cell.rectangle;
        const LONG x = place == CellPlace::middle ? (box.left + box.right) / 2 : box.right - 1;
        WindowPoint at{window, {x, (box.top + box.bottom) / 2}};
        MapWindowPoints(nullptr, window, &at.point, 1);
        return innermost(at);
    }
    return std::nullopt;
}

int ModalDialog::print(const PrintedPage& page) const {
    static const UINT question = RegisterWindowMessageW(L"PrintedPageQuery");
    for (const HWND window : descendants()) {
        if (IsWindowVisible(window) != 0) {
            if (const auto pages = SendMessageW(window, question, 0, reinterpret_cast<LPARAM>(&page)); pages > 0) {
                return static_cast<int>(pages);
            }
        }
    }
    return 0;
}

HWND dialog_owner(HWND main_window) {
    const std::optional<ModalDialog> dialog = ModalDialog::find();
    HWND owner = dialog ? dialog->window() : main_window;
    // A dialog that leaves its own owner enabled only helps that owner, so the owner has to wait too.
    for (HWND below = owner; below != nullptr && below != main_window && IsWindowEnabled(below) != 0;) {
        owner = below;
        below = GetWindow(below, GW_OWNER);
    }
    return owner;
}

}  // namespace host
