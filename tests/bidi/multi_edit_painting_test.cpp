#include "bidi/draw_bidi_text.h"
#include "tests/bidi/editor_fixture.h"

namespace corvanes {
namespace {

using Range = std::pair<int, int>;

TEST_F(MultiEdit, PaintsFromTheSideOfItsDirection) {
    EXPECT_TRUE(::IsRectEmpty(ink()));
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
    // A text longer than the window: no character is painted beyond the edge, and the end with the caret is shown.
    set(std::wstring(100, L'A'));
    EXPECT_GE(ink().left, 0);
    EXPECT_LE(ink().right, width);
}

TEST_F(MultiEdit, PaintsTheSelectionOfEitherDirection) {
    const COLORREF highlight = ::GetSysColor(COLOR_HIGHLIGHT);
    EXPECT_TRUE(::IsRectEmpty(around(highlight)));
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

TEST_F(MultiEdit, RepaintsAllRowsThatAKeyChanged) {
    for (const auto direction : {ParagraphDirection::left_to_right, ParagraphDirection::right_to_left}) {
        editor.SetDirection(direction);
        set(L"AB cd (1)\nEF\nxyz QR 2\ns\nTUV");
        EXPECT_TRUE(window_is_up_to_date());
        const UINT keys[] = {VK_DOWN, 'A', VK_RETURN, VK_BACK, VK_DOWN, VK_DOWN, VK_DELETE, VK_DOWN, VK_HOME, VK_BACK};
        for (size_t i = 0; i < 2 * std::size(keys); ++i) {
            // The second round holds Shift, so that a selection grows and shrinks.
            hold(i < std::size(keys) ? std::initializer_list<int>{} : std::initializer_list<int>{VK_SHIFT});
            key(keys[i % std::size(keys)]);
            ASSERT_TRUE(window_is_up_to_date()) << "key " << i;
        }
        hold({});
    }
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

TEST_F(MultiEdit, DoubleClicksSelectTheWordUnderThePoint) {
    struct Click {
        const wchar_t* text;
        ParagraphDirection direction;
        int character;  // as painted, from the left
        Range expected;
    };
    const auto left_to_right = ParagraphDirection::left_to_right;
    const auto right_to_left = ParagraphDirection::right_to_left;
    const Click clicks[] = {
        {L"ab cd", left_to_right, 3, {3, 5}}, {L"AB cd", left_to_right, 0, {0, 2}},
        {L"ab CD", left_to_right, 3, {3, 5}}, {L"ab CD", left_to_right, 4, {3, 5}},
        {L"AB CD", right_to_left, 4, {0, 2}}, {L"AB CD", right_to_left, 0, {3, 5}},
        {L"AB cd", right_to_left, 0, {3, 5}}, {L"AB CD", right_to_left, 2, {2, 3}},
    };
    for (const Click& click : clicks) {
        editor.SetDirection(click.direction);
        set(click.text);
        const CRect painted = ink();
        // The middle of that character, since the letters have about one width.
        const int x = painted.left + painted.Width() * (2 * click.character + 1) / 10;
        editor.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(x, 5));
        EXPECT_EQ(selection(), click.expected) << capitals(click.text).c_str() << ", character " << click.character;
    }
    set(L"");
    editor.SendMessage(WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
    EXPECT_EQ(selection(), Range(0, 0));
}

TEST_F(MultiEdit, DraggingBeyondTheWindowScrolls) {
    // The text's begin and end are scrolled out in turn.
    for (const auto direction : {ParagraphDirection::left_to_right, ParagraphDirection::right_to_left}) {
        const bool left_to_right = direction == ParagraphDirection::left_to_right;
        editor.SetDirection(direction);
        set(std::wstring(100, left_to_right ? L'a' : L'A'));
        key(VK_END);
        editor.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(width / 2, 5));
        const int anchor = selection().first;
        for (const bool to_begin : {true, false}) {
            const bool to_left = to_begin == left_to_right;
            for (int moves = 0; moves < 100; ++moves) {
                editor.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(to_left ? -5 : width + 5, 5));
            }
            EXPECT_EQ(selection(), to_begin ? Range(0, anchor) : Range(anchor, 100));
        }
        editor.SendMessage(WM_LBUTTONUP, 0, 0);
    }
    editor.SetDirection(ParagraphDirection::left_to_right);
    set(L"a\nb\nc\nd\ne\nf\ng\nh");
    editor.SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(0, 5));
    for (int moves = 0; moves < 8; ++moves) {
        editor.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(0, height + 2));
    }
    EXPECT_EQ(selection(), Range(0, 14));
    for (int moves = 0; moves < 8; ++moves) {
        editor.SendMessage(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(0, -2));
    }
    EXPECT_EQ(selection(), Range(0, 0));
    EXPECT_TRUE(window_is_up_to_date());
    editor.SendMessage(WM_LBUTTONUP, 0, 0);
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

    EXPECT_EQ(GetCharPositions(context, L"ab", 2, nullptr), -1);
    std::uint32_t positions[5];
    const int total = GetCharPositions(context, L"a\xDE00\xD83Dz", 4, positions);
    EXPECT_EQ(positions[0], 0u);
    EXPECT_EQ(positions[2], positions[3]) << "the second half of a pair has no width of its own";
    EXPECT_EQ(static_cast<int>(positions[4]), total);
    EXPECT_EQ(painted_glyph(L"a\xDE00\xD83Dz", 1), L"\xD83D\xDE00");
    EXPECT_EQ(painted_glyph(L"a\xDE00\xD83Dz", 2), L"");
    std::wstring glyphs;
    for (size_t i = 0; i < 9; ++i) {
        glyphs += painted_glyph(L"\xD83D\xDE00\xD83D\xDE01|\xDE03\xD83D\xDE02\xD83D", i) + L" ";
    }
    EXPECT_EQ(glyphs, L"\xD83D\xDE00  \xD83D\xDE01  | \xD83D\xDE03  \xD83D\xDE02  ") << "pair after pair";
}

}  // namespace
}  // namespace corvanes
