// A fixture for tests of keys, mouse and painting: an editor in a window that records what the editor tells it.
#pragma once

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "bidi/multi_edit.h"
#include "bidi/off_screen.h"
#include "tests/bidi/capital_hebrew.h"

namespace corvanes {

struct Told {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

inline bool operator==(const Told& left, const Told& right) {
    return left.message == right.message && left.wParam == right.wParam && left.lParam == right.lParam;
}

inline void PrintTo(const Told& told, std::ostream* out) {
    *out << std::hex << told.message << " " << std::dec << told.wParam << " " << told.lParam;
}

/// Records what the editor tells it.
class OwnerWindow : public CWnd {
  public:
    std::vector<Told> told;
    std::vector<WORD> notified;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if ((message >= language_changed_message && message <= direction_changed_message) || message == WM_KEYDOWN) {
            told.push_back({message, wParam, lParam});
            return 0;
        }
        if (message == WM_COMMAND && LOWORD(wParam) == 1 && lParam != 0) {
            notified.push_back(HIWORD(wParam));
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
};

class MultiEdit : public testing::Test {
  protected:
    static constexpr int width = 200;
    static constexpr int height = 60;

    void SetUp() override {
        const LPCWSTR window_class = AfxRegisterWndClass(0, nullptr);
        ASSERT_TRUE(owner.CreateEx(0, window_class, L"", WS_POPUP | WS_VISIBLE, CRect(0, 0, 300, 100), nullptr, 0));
        ASSERT_TRUE(editor.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE, CRect(0, 0, width, height), &owner, 1));
        editor.SetFocus();
        english();
        hold({});
    }
    void TearDown() override { hold({}); }

    void pump() {
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            ::TranslateMessage(&message);
            ::DispatchMessageW(&message);
        }
    }
    void hold(std::initializer_list<int> keys, std::initializer_list<int> toggles = {}) {
        BYTE state[256] = {};
        for (const int key : keys) {
            state[key] = 0x80;
        }
        for (const int key : toggles) {
            state[key] = 1;
        }
        ::SetKeyboardState(state);
    }
    void key(UINT code, UINT flags = 0) { editor.SendMessage(WM_KEYDOWN, code, MAKELPARAM(1, flags)); }
    void english() { editor.SendMessage(activate_layout_message, english_language); }
    void set(std::wstring_view text) { editor.SetWindowText(hebrew(text).c_str()); }
    std::wstring text() const {
        CString text;
        editor.GetWindowText(text);
        return capitals(text.GetString());
    }
    std::pair<int, int> selection() const {
        int first = 0;
        int last = 0;
        editor.GetSel(first, last);
        return {first, last};
    }
    std::vector<Told> take() { return std::exchange(owner.told, {}); }

    /// The smallest rectangle around all pixels of a colour in the painted editor.
    CRect around(COLORREF color) {
        CClientDC screen(&editor);
        OffScreen picture(screen, width, height, RGB(1, 2, 3));
        editor.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(picture.dc().m_hDC), PRF_CLIENT);
        CRect bounds(width, height, 0, 0);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (picture.dc().GetPixel(x, y) == color) {
                    bounds = CRect(std::min<int>(bounds.left, x), std::min<int>(bounds.top, y),
                                   std::max<int>(bounds.right, x + 1), std::max<int>(bounds.bottom, y + 1));
                }
            }
        }
        return bounds;
    }
    /// Whether the window shows what the editor paints when it paints all anew.
    bool window_is_up_to_date() {
        editor.UpdateWindow();
        editor.HideCaret();
        CClientDC screen(&editor);
        OffScreen shown(screen, width, height, 0);
        OffScreen painted(screen, width, height, 0);
        shown.dc().BitBlt(0, 0, width, height, &screen, 0, 0, SRCCOPY);
        editor.SendMessage(WM_PRINTCLIENT, reinterpret_cast<WPARAM>(painted.dc().m_hDC), PRF_CLIENT);
        editor.ShowCaret();
        shown.dc().BitBlt(0, 0, width, height, &painted.dc(), 0, 0, SRCINVERT);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                if (shown.dc().GetPixel(x, y) != 0) {
                    return false;
                }
            }
        }
        return true;
    }
    CRect ink() { return around(::GetSysColor(COLOR_WINDOWTEXT)); }

    OwnerWindow owner;
    CUGMultiEdit editor;
};

}  // namespace corvanes
