#include "platform/host/editor/posted_input.h"

#include "platform/host/editor/script_words.h"
#include "platform/host/view/window_class.h"

namespace host {
namespace {

LPARAM packed(POINT point) {
    return MAKELPARAM(point.x, point.y);
}

struct ModifierKey {
    unsigned bit;
    int virtual_key;
    int left_key;
};

constexpr ModifierKey modifier_keys[] = {{NamedKey::control, VK_CONTROL, VK_LCONTROL},
                                         {NamedKey::shift, VK_SHIFT, VK_LSHIFT},
                                         {NamedKey::alt, VK_MENU, VK_LMENU}};

bool is_extended(int virtual_key) {
    return virtual_key >= VK_PRIOR && virtual_key <= VK_DELETE;
}

void post_key(HWND window, int virtual_key, bool down, bool alt) {
    constexpr LPARAM extended = 1 << 24;
    constexpr LPARAM alt_held = 1 << 29;
    constexpr LPARAM was_down = 1 << 30;
    constexpr LPARAM going_up = LPARAM(1) << 31;
    LPARAM details = 1 | static_cast<LPARAM>(MapVirtualKeyW(static_cast<UINT>(virtual_key), MAPVK_VK_TO_VSC)) << 16;
    details |= (is_extended(virtual_key) ? extended : 0) | (alt ? alt_held : 0) | (down ? 0 : was_down | going_up);
    const UINT down_message = alt ? WM_SYSKEYDOWN : WM_KEYDOWN;
    const UINT up_message = alt ? WM_SYSKEYUP : WM_KEYUP;
    PostMessageW(window, down ? down_message : up_message, static_cast<WPARAM>(virtual_key), details);
}

}  // namespace

void post_click(HWND window, POINT point) {
    PostMessageW(window, WM_MOUSEMOVE, 0, packed(point));
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, packed(point));
    PostMessageW(window, WM_LBUTTONUP, 0, packed(point));
}

void post_double_click(HWND window, POINT point) {
    post_click(window, point);
    PostMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, packed(point));
    PostMessageW(window, WM_LBUTTONUP, 0, packed(point));
}

void post_drag(HWND window, POINT from, POINT to) {
    const POINT half_way = {(from.x + to.x) / 2, (from.y + to.y) / 2};
    PostMessageW(window, WM_MOUSEMOVE, 0, packed(from));
    PostMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, packed(from));
    PostMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, packed(half_way));
    PostMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, packed(to));
    PostMessageW(window, WM_LBUTTONUP, 0, packed(to));
}

void post_press(HWND control) {
    if (is_button(control)) {
        PostMessageW(control, BM_CLICK, 0, 0);
        return;
    }
    RECT client;
    GetClientRect(control, &client);
    post_click(control, {client.right / 2, client.bottom / 2});
}

void TypedKeys::add_key(int virtual_key, unsigned modifiers) {
    strokes_.push_back({virtual_key, 0, modifiers});
}

void TypedKeys::add_text(const std::wstring& text) {
    const HKL layout = GetKeyboardLayout(0);
    for (const wchar_t character : text) {
        const SHORT key = VkKeyScanExW(character, layout);
        if (key == -1) {
            strokes_.push_back({0, character, 0});
            continue;
        }
        const unsigned state = HIBYTE(key);
        const unsigned modifiers = ((state & 1) != 0 ? NamedKey::shift : 0u) |
                                   ((state & 2) != 0 ? NamedKey::control : 0u) |
                                   ((state & 4) != 0 ? NamedKey::alt : 0u);
        strokes_.push_back({LOBYTE(key), character, modifiers});
    }
}

void TypedKeys::post_next(HWND window) {
    release_modifiers();
    const Stroke stroke = strokes_.front();
    strokes_.pop_front();
    if (stroke.virtual_key == 0) {
        PostMessageW(window, WM_CHAR, stroke.character, 1);
        return;
    }
    const bool alt_alone = (stroke.modifiers & NamedKey::alt) != 0 && (stroke.modifiers & NamedKey::control) == 0;
    hold_modifiers(stroke.modifiers);
    for (const ModifierKey& key : modifier_keys) {
        if ((stroke.modifiers & key.bit) != 0) {
            post_key(window, key.virtual_key, true, alt_alone);
        }
    }
    post_key(window, stroke.virtual_key, true, alt_alone);
    post_key(window, stroke.virtual_key, false, alt_alone);
}

void TypedKeys::hold_modifiers(unsigned modifiers) {
    BYTE state[256];
    GetKeyboardState(state);
    for (const ModifierKey& key : modifier_keys) {
        const BYTE down = (modifiers & key.bit) != 0 ? 0x80 : 0;
        state[key.virtual_key] = down;
        state[key.left_key] = down;
    }
    SetKeyboardState(state);
    held_ = modifiers;
}

void TypedKeys::release_modifiers() {
    if (held_ != 0) {
        hold_modifiers(0);
    }
}

}  // namespace host
