// Mouse and keyboard input for one window, posted as the system posts a person's.
#pragma once

#include <windows.h>

#include <deque>
#include <string>

namespace host {

/// A click of the left button. The point is in the window's client area.
void post_click(HWND window, POINT point);
void post_double_click(HWND window, POINT point);
/// Presses at `from`, moves to `to` and releases there.
void post_drag(HWND window, POINT from, POINT to);
/// Presses a button, or clicks in the middle of another control. A button goes down and up within one message, so that
/// another program that takes the focus meanwhile cannot undo it.
void post_press(HWND control);

/// Keys that a script types. Each is posted only when the one before was handled, because that one may have moved the
/// focus, and because its character comes after all keys that are posted already. Modifier keys are held for the whole
/// thread.
class TypedKeys {
  public:
    ~TypedKeys() { release_modifiers(); }

    /// Adds a key with NamedKey::Modifier bits.
    void add_key(int virtual_key, unsigned modifiers);
    /// Adds the keys that give this text in the current keyboard layout. What no key gives arrives as a character.
    void add_text(const std::wstring& text);

    bool empty() const { return strokes_.empty(); }
    /// Posts the next key to the window, with its modifiers held until the next call or release_modifiers().
    void post_next(HWND window);
    void release_modifiers();

  private:
    struct Stroke {
        int virtual_key = 0;  ///< 0: a character without a key
        wchar_t character{};
        unsigned modifiers = 0;
    };
    void hold_modifiers(unsigned modifiers);

    std::deque<Stroke> strokes_;
    unsigned held_ = 0;
};

}  // namespace host
