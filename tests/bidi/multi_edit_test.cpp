#include "bidi/multi_edit.h"

#include <gmock/gmock.h>

#include "bidi/clipboard_text.h"
#include "bidi/draw_bidi_text.h"
#include "bidi/off_screen.h"
#include "tests/bidi/capital_hebrew.h"

using namespace corvanes;

namespace {

struct Told {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

bool operator==(const Told& left, const Told& right) {
    return left.message == right.message && left.wParam == right.wParam && left.lParam == right.lParam;
}

void PrintTo(const Told& told, std::ostream* out) {
    *out << std::hex << told.message << " " << std::dec << told.wParam << " " << told.lParam;
}

/// Writes down what the editor tells it.
class OwnerWindow : public CWnd {
  public:
    std::vector<Told> told;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if ((message >= language_changed_message && message <= direction_changed_message) || message == WM_KEYDOWN) {
            told.push_back({message, wParam, lParam});
            return 0;
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
    void hebrew_input() { editor.SendMessage(activate_layout_message, hebrew_language); }
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
    CRect ink() { return around(::GetSysColor(COLOR_WINDOWTEXT)); }

    OwnerWindow owner;
    CUGMultiEdit editor;
};

using Range = std::pair<int, int>;

TEST_F(MultiEdit, AnswersTheTextMessagesFromItsModel) {
    set(L"AB cd\r\nEF");
    EXPECT_EQ(text(), L"AB cd\nEF");
    EXPECT_EQ(editor.GetWindowTextLength(), 8);
    wchar_t small[4];
    EXPECT_EQ(editor.GetWindowText(small, 4), 3);
    EXPECT_EQ(capitals(small), L"AB ");
    EXPECT_EQ(editor.GetLineCount(), 2);
    EXPECT_FALSE(editor.GetModify());
    editor.SetSel(1, 4);
    EXPECT_EQ(selection(), Range(1, 4));
    editor.ReplaceSel(L"x");
    EXPECT_EQ(text(), L"Axd\nEF");
    EXPECT_TRUE(editor.GetModify());
    editor.SetModify(FALSE);
    EXPECT_FALSE(editor.GetModify());
    editor.SetSel(0, -1);
    EXPECT_EQ(selection(), Range(0, 6));
    editor.SetSel(-1, 0);
    EXPECT_EQ(selection(), Range(6, 6));
    editor.Undo();
    EXPECT_EQ(text(), L"AB cd\nEF");
}

TEST_F(MultiEdit, KeysBecomeCharacters) {
    for (const UINT code : {UINT{'A'}, UINT{'1'}, 190U, UINT{VK_SPACE}, UINT{VK_NUMPAD7}}) {
        hold({}, {VK_NUMLOCK});
        key(code);
    }
    hold({VK_SHIFT});
    key('B');
    hold({}, {VK_CAPITAL});
    key('1');
    EXPECT_EQ(text(), L"a1. 7B!");
    hold({});
    editor.SetSel(0, 2);
    key(VK_PRIOR);
    EXPECT_EQ(text(), L". 7B!") << "a key without a character deletes the selection";
    key(VK_DELETE);
    key(VK_END);
    key(VK_BACK);
    EXPECT_EQ(text(), L" 7B");
    key(VK_RETURN);
    key(VK_TAB);
    EXPECT_EQ(text(), L" 7B\n    ");
    key('Z');
    key(VK_TAB);
    EXPECT_EQ(text(), L" 7B\n    z   ");
    editor.SetLocked(true);
    key(VK_TAB);
    key(VK_RETURN);
    EXPECT_EQ(text(), L" 7B\n    z   ");
}

TEST_F(MultiEdit, AKeyOfTheMessageLoopGivesOneCharacter) {
    const auto post = [this](UINT code, UINT scan) { editor.PostMessage(WM_KEYDOWN, code, MAKELPARAM(1, scan)); };
    post('A', ::MapVirtualKeyW('A', MAPVK_VK_TO_VSC));
    post('1', ::MapVirtualKeyW('1', MAPVK_VK_TO_VSC));
    pump();
    EXPECT_EQ(text(), L"a1");
    editor.PostMessage(WM_CHAR, 0x4E2D, 1);
    editor.PostMessage(WM_CHAR, L'\b', 1);
    pump();
    EXPECT_EQ(text(), L"a1\x4E2D") << "a character without a key counts, a control character does not";
}

TEST_F(MultiEdit, LimitUndoAndClipboard) {
    const std::wstring full(1023, L'x');
    editor.SetWindowText(full.c_str());
    key('A');
    key('B');
    EXPECT_EQ(text(), L"a" + full);
    editor.SetWindowText(L"");
    for (const UINT code : {'A', 'B', 'C'}) {
        key(code);
    }
    hold({VK_CONTROL});
    key('Z');
    EXPECT_EQ(text(), L"ab");
    EXPECT_EQ(selection(), Range(0, 0));
    key('Z');
    EXPECT_EQ(text(), L"a");
    key('Z');
    EXPECT_EQ(text(), L"ab");

    set(L"AB\ncd");
    editor.SetSel(1, 4);
    key('C');
    EXPECT_EQ(clipboard_text(editor), hebrew(L"B\r\nc"));
    key('X');
    EXPECT_EQ(text(), L"Ad");
    key('V');
    key('V');
    EXPECT_EQ(text(), L"AB\ncB\ncd");
    editor.SetLocked(true);
    editor.SetSel(0, -1);
    key('V');
    EXPECT_EQ(text(), L"B c") << "a locked editor has one line";
}

TEST_F(MultiEdit, LanguagesAndDirectionsAreTold) {
    take();
    editor.SendMessage(WM_INPUTLANGCHANGE, 0, MAKELPARAM(1037, 0xF03D));
    EXPECT_EQ(take(), (std::vector<Told>{{0x2C02, 1037, 0xF03D}}));
    EXPECT_EQ(editor.SendMessage(WM_INPUTLANGCHANGEREQUEST, 0, 1033), 0);
    // The editor is in Hebrew now: a number switches it by itself.
    for (const UINT code : {UINT{'1'}, UINT{'2'}, 191U, UINT{'5'}}) {
        key(code);
    }
    EXPECT_EQ(text(), L"12.5");
    take();
    hold({VK_CONTROL, VK_RCONTROL});
    key(VK_SHIFT, 54);
    EXPECT_EQ(take(), (std::vector<Told>{{0x2F02, 2, 0}}));
    key(VK_SHIFT, 42);
    hold({VK_LSHIFT, VK_SHIFT});
    key(VK_CONTROL, 29);
    EXPECT_EQ(take(), (std::vector<Told>{{0x2F02, 1, 0}, {0x2F02, 1, 0}}));
    hold({});
    pump();
    key('A');
    EXPECT_EQ(text(), L"12.5a") << "and English with it";
    hold({VK_MENU});
    editor.SendMessage(WM_SYSKEYDOWN, VK_SHIFT, MAKELPARAM(1, 42 | KF_ALTDOWN));
    hold({});
    pump();
    key('1');
    key(191);
    EXPECT_EQ(text(), L"12.5a1.") << "Hebrew again";
}

TEST_F(MultiEdit, TellsChangesAndLeavesEscapeToTheParent) {
    take();
    key('A');
    key(VK_LEFT);
    key(VK_HOME);
    EXPECT_EQ(take(), (std::vector<Told>{{0x2D02, 1, 0}, {0x2E02, 1, 0}, {0x2E02, 0, 0}}));
    editor.SendMessage(WM_KEYDOWN, VK_ESCAPE, MAKELPARAM(3, 0x0101));
    pump();
    EXPECT_EQ(take(), (std::vector<Told>{{WM_KEYDOWN, VK_ESCAPE, MAKELPARAM(3, 0x0101)}}));
}

TEST_F(MultiEdit, PaintsFromTheSideOfItsDirection) {
    EXPECT_TRUE(ink().IsRectEmpty());
    set(L"ab");
    const CRect left = ink();
    EXPECT_LT(left.right, width / 4);
    editor.SetDirection(ParagraphDirection::right_to_left);
    const CRect right = ink();
    EXPECT_GT(right.left, width * 3 / 4);
    EXPECT_EQ(right.Width(), left.Width());
    set(L"AB\n");
    const CRect lower = ink();
    EXPECT_GT(lower.top, left.bottom) << "the first line is the lower one";
    set(L"AB");
    EXPECT_LT(ink().top, lower.top);
    // Longer than the window: no part of a character outside, and the caret's end shows.
    set(std::wstring(100, L'A'));
    EXPECT_GE(ink().left, 0);
    EXPECT_LE(ink().right, width);
}

TEST_F(MultiEdit, PaintsTheSelectionOfEitherDirection) {
    const COLORREF highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_TRUE(around(highlight).IsRectEmpty());
    set(L"abcdef");
    editor.SetSel(0, 3);
    const CRect left = around(highlight);
    EXPECT_EQ(left.left, 2);
    EXPECT_EQ(left.right, 2 + editor.SendMessage(EM_POSFROMCHAR, 3) % 0x10000);
    set(L"ABCDEF");
    editor.SetSel(0, 3);
    const CRect right = around(highlight);
    EXPECT_GT(right.left, left.left) << "the first Hebrew letters stand at the right of the word";
}

TEST_F(MultiEdit, MouseAndHitMessagesAgree) {
    set(L"abc def");
    const int x = static_cast<int>(editor.SendMessage(EM_POSFROMCHAR, 4) & 0xFFFF) + 2;
    EXPECT_EQ(editor.SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(x, 5)), MAKELONG(4, 0));
    EXPECT_EQ(editor.SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(x - 1, 5)), MAKELONG(3, 0));
    EXPECT_EQ(editor.SendMessage(EM_CHARFROMPOS, 0, MAKELPARAM(width, 500)), MAKELONG(7, 0));
    editor.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(0, 5));
    editor.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, 5));
    editor.SendMessage(WM_LBUTTONUP, 0, MAKELPARAM(x, 5));
    EXPECT_EQ(selection(), Range(0, 4));
    EXPECT_NE(::GetCapture(), editor.m_hWnd);
    editor.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(x + 1, 5));
    EXPECT_EQ(selection(), Range(4, 7));
    editor.SetDirection(ParagraphDirection::right_to_left);
    set(L"ABC");
    editor.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(width, 5));
    editor.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(0, 5));
    editor.SendMessage(WM_LBUTTONUP, 0, 0);
    EXPECT_EQ(selection(), Range(0, 3));
}

TEST_F(MultiEdit, PaintsBlocksOfText) {
    CClientDC dc(&editor);
    OffScreen picture(dc, width, height, RGB(255, 255, 255));
    const HDC context = picture.dc().m_hDC;
    const RECT rect{0, 0, width, height};
    int lines = -1;
    int longest = -1;
    EXPECT_EQ(DrawBidiText(context, L"", rect, &lines, &longest, 0, 1, 0), 0);
    EXPECT_EQ(std::pair(lines, longest), std::pair(0, 0));
    EXPECT_EQ(DrawBidiText(context, hebrew(L"AB\nabc").c_str(), rect, &lines, &longest, 0, 1, 1), 2);
    EXPECT_EQ(std::pair(lines, longest), std::pair(2, 3));
    EXPECT_FALSE(DrawRightToLeftCell(context, L"abc", rect));
    EXPECT_TRUE(DrawRightToLeftCell(context, hebrew(L"A").c_str(), rect));

    EXPECT_EQ(GetCharPositions(context, L"ab", 2, nullptr), -1);
    std::uint32_t positions[5];
    const int total = GetCharPositions(context, L"a\xDE00\xD83Dz", 4, positions);
    EXPECT_EQ(positions[0], 0u);
    EXPECT_EQ(positions[2], positions[3]) << "the second half of a pair has no width of its own";
    EXPECT_EQ(static_cast<int>(positions[4]), total);
    EXPECT_EQ(painted_glyph(L"a\xDE00\xD83Dz", 1), L"\xD83D\xDE00");
    EXPECT_EQ(painted_glyph(L"a\xDE00\xD83Dz", 2), L"");
}

}  // namespace
