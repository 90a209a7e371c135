#include "bidi/clipboard_text.h"
#include "tests/bidi/editor_fixture.h"

namespace corvanes {
namespace {

using Range = std::pair<int, int>;

TEST_F(MultiEdit, AnswersTheTextMessagesFromItsModel) {
    set(L"AB cd\r\nEF");
    EXPECT_EQ(text(), L"AB cd\nEF");
    EXPECT_EQ(editor.GetWindowTextLength(), 8);
    wchar_t small[4];
    EXPECT_EQ(::GetWindowTextW(editor, small, 4), 3);
    EXPECT_EQ(capitals(small), L"AB ");
    EXPECT_EQ(editor.SendMessage(EM_GETLINECOUNT), 2);
    EXPECT_EQ(editor.SendMessage(EM_LINEFROMCHAR, 6), 1);
    EXPECT_EQ(editor.SendMessage(EM_LINEINDEX, 1), 6);
    EXPECT_EQ(editor.SendMessage(EM_LINEINDEX, 2), -1);
    EXPECT_EQ(editor.SendMessage(EM_LINELENGTH, 6), 2);
    wchar_t line[4] = {2};
    EXPECT_EQ(editor.SendMessage(EM_GETLINE, 0, reinterpret_cast<LPARAM>(line)), 2);
    EXPECT_EQ(capitals({line, 2}), L"AB");
    EXPECT_EQ(editor.SendMessage(EM_GETLIMITTEXT), 1024);
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
    EXPECT_TRUE(editor.CanUndo());
    editor.Undo();
    EXPECT_EQ(text(), L"AB cd\nEF");
    set(L"AB");
    EXPECT_FALSE(editor.CanUndo());
    key(VK_DELETE);
    editor.SetModify(FALSE);
    EXPECT_TRUE(editor.CanUndo()) << "back to the text that was set";
}

TEST_F(MultiEdit, EscapeForgetsTheColumnForUpAndDown) {
    set(L"abcdef\nx\nabcdef");
    editor.SetSel(6, 6);
    key(VK_DOWN);
    key(VK_DOWN);
    EXPECT_EQ(selection(), std::pair(15, 15));
    editor.SetSel(6, 6);
    key(VK_DOWN);
    key(VK_ESCAPE);
    key(VK_DOWN);
    EXPECT_EQ(selection(), std::pair(10, 10));
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
    editor.SendMessage(WM_IME_CHAR, 0xAC00, 1);
    pump();
    EXPECT_EQ(text(), L"a1\x4E2D\xAC00") << "nor does one of an input method get lost";
}

TEST_F(MultiEdit, UndoAndClipboard) {
    key('A');
    key('B');
    hold({VK_CONTROL});
    key('Z');
    EXPECT_EQ(text(), L"a");
    EXPECT_EQ(selection(), Range(0, 0));

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

TEST_F(MultiEdit, NotifiesItsParentAsAnEditControlDoes) {
    using Notifications = std::vector<WORD>;
    owner.notified.clear();
    editor.SetWindowText(std::wstring(1023, L'x').c_str());
    key(VK_END);
    EXPECT_EQ(owner.notified, Notifications()) << "neither a text that is set nor the caret is a change by the user";
    key('A');
    EXPECT_EQ(std::exchange(owner.notified, {}), (Notifications{EN_UPDATE, EN_CHANGE}));
    key('B');
    EXPECT_EQ(std::exchange(owner.notified, {}), Notifications{EN_MAXTEXT});
    editor.ReplaceSel(L"too long");
    EXPECT_EQ(std::exchange(owner.notified, {}), Notifications{EN_MAXTEXT});
    EXPECT_EQ(text(), std::wstring(1023, L'x') + L"a");
    owner.SetFocus();
    editor.SetFocus();
    EXPECT_EQ(owner.notified, (Notifications{EN_KILLFOCUS, EN_SETFOCUS}));
}

TEST_F(MultiEdit, CharactersThatTheCodePageLacks) {
    const std::wstring pair = L"\xD83D\xDE00";
    for (const auto direction : {ParagraphDirection::left_to_right, ParagraphDirection::right_to_left}) {
        editor.SetDirection(direction);
        set(L"");
        for (const wchar_t character : L"\x4E2D" + pair + L"\xD55C") {
            editor.SendMessage(WM_CHAR, static_cast<WPARAM>(character), 1);
        }
        EXPECT_EQ(text(), L"\x4E2D" + pair + L"\xD55C");
        EXPECT_FALSE(::IsRectEmpty(ink()));
        // Neutrals run from left to right in lines of either direction. The caret passes a surrogate pair in one step.
        key(VK_HOME);
        EXPECT_EQ(selection(), Range(0, 0));
        std::vector<int> stops;
        for (int i = 0; i < 4; ++i) {
            key(VK_RIGHT);
            stops.push_back(selection().first);
        }
        EXPECT_THAT(stops, testing::ElementsAre(1, 3, 4, 4));
        set(L"a" + pair + L"b");
        editor.SetSel(0, 3);
        editor.Copy();
        EXPECT_EQ(clipboard_text(editor), L"a" + pair);
        editor.SetSel(4, 4);
        editor.Paste();
        EXPECT_EQ(text(), L"a" + pair + L"ba" + pair);
    }
}

}  // namespace
}  // namespace corvanes
