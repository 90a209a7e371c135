#include "grid/check_box_type.h"
#include "tests/grid/grid_window.h"

using namespace grid_test;

namespace {

class Editing : public GridTest {
  protected:
    std::string editor_text() const {
        CString text;
        CWnd::FromHandle(::GetFocus())->GetWindowText(text);
        return narrow(text);
    }
    bool in_editor() const {
        return grid.IsEditing() && ::GetFocus() != grid.m_hWnd && ::IsWindowVisible(::GetFocus());
    }
};

TEST_F(Editing, EnterStoresAndGoesDown) {
    grid.SelectCell(0, 0);
    ASSERT_EQ(grid.StartEdit(1, 2, 0), 0);
    ASSERT_TRUE(in_editor());
    EXPECT_EQ(editor_text(), "2b");
    EXPECT_EQ(::SendMessageW(::GetFocus(), EM_GETSEL, 0, 0), MAKELONG(2, 2))
        << "the caret at the end, nothing selected";
    EXPECT_FALSE(grid.IsSelected(0, 0));
    key(VK_NEXT);
    EXPECT_EQ(editor_text(), "2b");
    ::SendMessageW(::GetFocus(), EM_SETSEL, 0, -1);
    type(L"new");
    key(VK_RETURN);
    EXPECT_EQ(grid.take(), (Log{"can move 0 0 1 2", "row 0 2", "cell 0 1 0 2", "start 1 2", "verify new 1 2",
                                "finish new 1 2 0", "can move 1 2 1 3", "row 2 3", "cell 1 1 2 3"}));
    EXPECT_STREQ(grid.GetCellText(1, 2), L"new");
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(::GetFocus(), grid.GetGrid().m_hWnd);
}

TEST_F(Editing, TheTypedKeyReplacesTheTextAndTabGoesRight) {
    ASSERT_EQ(grid.StartEdit('q'), 0);
    EXPECT_EQ(editor_text(), "q");
    type(L"r");
    key(VK_TAB);
    EXPECT_STREQ(grid.GetCellText(0, 0), L"qr");
    EXPECT_EQ(current(), "1,0");
    ASSERT_EQ(grid.StartEdit(), 0);
    hold({VK_SHIFT});
    key(VK_TAB);
    EXPECT_EQ(current(), "0,0");
    EXPECT_FALSE(grid.IsSelected(0, 0) || grid.IsSelected(1, 0)) << "Shift is the way back here";
    grid.StartEdit(1, 3, 0);
    key(VK_RETURN);
    EXPECT_EQ(current(), "1,2");
}

TEST_F(Editing, EscapeGivesTheFormerTextBack) {
    grid.StartEdit('q');
    grid.take();
    key(VK_ESCAPE);
    EXPECT_EQ(grid.take(), (Log{"verify 0a 0 0", "finish 0a 0 0 1"}));
    EXPECT_STREQ(grid.GetCellText(0, 0), L"0a");
    EXPECT_EQ(current(), "0,0");
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(Editing, ARefusalKeepsTheEditorOpen) {
    grid.StartEdit('q');
    grid.take();
    grid.verified = 0;
    key(VK_RETURN);
    EXPECT_EQ(grid.take(), (Log{"verify q 0 0"}));
    grid.verified = 1;
    grid.finished = 0;
    key(VK_RETURN);
    EXPECT_EQ(grid.take(), (Log{"verify q 0 0", "finish q 0 0 0"}));
    // A click elsewhere takes the focus away; then it comes back.
    press(grid.GetGrid(), 110, 45);
    EXPECT_EQ(grid.take(), (Log{"verify q 0 0", "finish q 0 0 0"}));
    press(grid.GetTopHeading(), 110, 5);
    EXPECT_EQ(grid.take(), (Log{"verify q 0 0", "finish q 0 0 0"}));
    EXPECT_TRUE(in_editor());
    EXPECT_EQ(editor_text(), "q");
    EXPECT_STREQ(grid.GetCellText(0, 0), L"0a");
    grid.finished = 1;
    key(VK_RETURN);
    EXPECT_STREQ(grid.GetCellText(0, 0), L"q");
}

TEST_F(Editing, AClickElsewhereStoresFirst) {
    grid.edit_on_click = true;
    click(grid.GetGrid(), 10, 10);
    EXPECT_TRUE(in_editor());
    type(L"x");
    EXPECT_EQ(editor_text(), "0xa") << "the caret is where the click was";
    grid.take();
    press(grid.GetGrid(), 110, 25);
    EXPECT_EQ(grid.take(), (Log{"verify 0xa 0 0", "finish 0xa 0 0 0", "can move 0 0 1 1", "row 0 1", "cell 0 1 0 1",
                                "click 1 1 1 100 20 199 39 110 25 0", "start 1 1"}));
    EXPECT_EQ(editor_text(), "1b");
    release(grid.GetGrid(), 110, 25);
    EXPECT_EQ(grid.take(), (Log{"click 1 1 0 100 20 199 39 110 25 0"}))
        << "the release comes to the grid, not to the editor";
    EXPECT_TRUE(grid.FinishEdit());
}

TEST_F(Editing, AClickPlacesTheCaretInTheTextThatWasShown) {
    grid.edit_on_click = true;
    CClientDC dc(&grid);
    dc.SelectObject(CFont::FromHandle(grid.GetGridFont()));
    const auto caret_after_click = [this](int x) {
        press(grid.GetGrid(), x, 10);
        release(grid.GetGrid(), x, 10);
        const LRESULT selection = ::SendMessageW(::GetFocus(), EM_GETSEL, 0, 0);
        grid.FinishEdit();
        return HIWORD(selection);
    };
    constexpr int margin = corvanes::cell_text_margin;
    grid.SetCellText(1, 0, L"12345678");
    grid.AlignColumnRight(1, TRUE);
    EXPECT_EQ(caret_after_click(199 - margin - corvanes::text_width(dc, L"345678")), 2) << "at the right edge";
    EXPECT_EQ(caret_after_click(105), 8) << "beside the text";

    grid.SetCellText(0, 0, L"\x5D0\x5D1\x5D2\x5D3\x5D4\x5D5");
    grid.SetCellTypeIndex(0, 0, corvanes::type_drop_list);
    const int from_right = CUGDropListType::button_strip + margin + corvanes::text_width(dc, L"\x5D0\x5D1");
    EXPECT_EQ(caret_after_click(101 - from_right), 2) << "beside a button";

    grid.SetColumnWidth(1, 260);
    grid.SetCellText(2, 0, L"abcdef");
    EXPECT_EQ(caret_after_click(360 + margin + corvanes::text_width(dc, L"ab")), 2) << "scrolled into sight";
    EXPECT_GT(grid.state().scroll_x, 0);
}

TEST_F(Editing, AClickInAHalfHiddenRowGoesToThatRow) {
    grid.SetDefaultRowHeight(30);
    grid.SetCellTypeIndex(0, 6, corvanes::type_drop_list);
    grid.SetCellLabel(0, 6, L"a\nb\n");
    grid.take();
    press(grid.GetGrid(), 95, 190);
    EXPECT_EQ(grid.take(), (Log{"can move 0 0 0 6", "row 0 6", "cell 0 0 0 6", "click 0 6 1 0 180 99 209 95 190 1"}));
    release(grid.GetGrid(), 95, 190);
    EXPECT_EQ(grid.take(), (Log{"click 0 6 0 0 180 99 209 95 190 1"}));
    key(VK_HOME);
    key(VK_RETURN);
    EXPECT_STREQ(grid.GetCellText(0, 6), L"a");
    // A drag that ends on another row's button does not press it.
    grid.SetCellTypeIndex(0, 4, corvanes::type_drop_list);
    grid.SetCellLabel(0, 4, L"a\nb\n");
    press(grid.GetGrid(), 95, 40);
    release(grid.GetGrid(), 95, 100);
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(Editing, AnUntouchedTextComesBackAsItWas) {
    grid.SetCellText(0, 0, L"a\rb\r\n");
    grid.StartEdit(0, 0, 0);
    key(VK_RETURN);
    EXPECT_STREQ(grid.GetCellText(0, 0), L"a\rb\r\n");
}

TEST_F(Editing, TurnsToTheRightWithTheFirstHebrewLetter) {
    CUGMaskedEdit own;
    ASSERT_TRUE(own.Create(WS_CHILD, CRect(0, 0, 0, 0), &grid, 125));
    grid.editor = &own;
    grid.StartEdit(0, 0, '8');
    EXPECT_FALSE(own.RightToLeft());
    type(L"0 \x5D3\x5DC\x5EA");
    EXPECT_TRUE(own.RightToLeft());
    own.SetDirection(corvanes::ParagraphDirection::left_to_right);
    type(L"\x5D0");
    EXPECT_FALSE(own.RightToLeft()) << "what a person chooses stays";
    key(VK_RETURN);
    EXPECT_STREQ(grid.GetCellText(0, 0), L"80 \x5D3\x5DC\x5EA\x5D0");
    grid.SetCellText(0, 0, L"");
    for (const auto direction :
         {corvanes::ParagraphDirection::left_to_right, corvanes::ParagraphDirection::right_to_left}) {
        own.SetDirectionWhenEmpty(direction);
        grid.StartEdit(0, 0, 0);
        EXPECT_EQ(own.RightToLeft(), direction == corvanes::ParagraphDirection::right_to_left);
        grid.FinishEdit();
    }
}

TEST_F(Editing, TheOwnersEditorIsUsedAndOthersAreRefused) {
    CUGMaskedEdit own;
    ASSERT_TRUE(own.Create(WS_CHILD | WS_VISIBLE, CRect(0, 0, 0, 0), &grid, 125));
    grid.editor = &own;
    ASSERT_EQ(grid.StartEdit(2, 1, 0), 0);
    EXPECT_EQ(::GetFocus(), own.m_hWnd);
    CRect place;
    own.GetWindowRect(&place);
    EXPECT_EQ(place, CRect(250, 90, 349, 109));
    EXPECT_TRUE(grid.FinishEdit());
    EXPECT_FALSE(own.IsWindowVisible());

    CWnd other;
    ASSERT_TRUE(other.Create(L"EDIT", L"", WS_CHILD, CRect(0, 0, 0, 0), &grid, 126));
    grid.editor = &other;
    EXPECT_EQ(grid.StartEdit(), 1);
    grid.editor = nullptr;
    grid.allow_start = 0;
    EXPECT_EQ(grid.StartEdit(), 1);
    EXPECT_FALSE(grid.IsEditing());
}

TEST_F(Editing, RowsThatGoTakeTheirEditorAlong) {
    grid.StartEdit(0, 3, 'q');
    grid.take();
    grid.DeleteRow(1);
    pump();
    EXPECT_EQ(grid.take(), (Log{"row 3 2", "cell 0 0 3 2"})) << "what was typed must not be stored elsewhere";
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_STREQ(grid.GetCellText(0, 3), L"4a");
    grid.StartEdit(0, 3, 'q');
    grid.take();
    grid.DestroyWindow();
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_EQ(grid.take(), Log());

    grid.SetColumnWidth(1, 0);
    ASSERT_TRUE(grid.CreateGrid(WS_VISIBLE, CRect(0, 0, 400, 220), &frame, 7)) << "a grid can have a window again";
    grid.SetColumnWidth(1, 0);
    EXPECT_EQ(grid.StartEdit(1, 0, 0), 1) << "nobody could see the editor";
    EXPECT_EQ(grid.StartEdit(2, 0, 0), 0);
}

TEST_F(Editing, ADropListOffersTheLinesOfTheLabel) {
    grid.SetCellTypeIndex(0, 1, corvanes::type_drop_list);
    CUGGrid& cells = grid.GetGrid();
    click(cells, 90, 25);
    EXPECT_FALSE(grid.IsEditing()) << "no label, no list";
    grid.SetCellLabel(0, 1, L"door\nwindow\n");
    grid.take();
    click(cells, 90, 25);
    EXPECT_EQ(grid.take(), (Log{"click 0 1 1 0 20 99 39 90 25 1", "click 0 1 0 0 20 99 39 90 25 1"}));
    ASSERT_TRUE(grid.IsEditing());
    const HWND list = ::GetFocus();
    EXPECT_EQ(::SendMessageW(list, CB_GETCOUNT, 0, 0), 2);
    EXPECT_NE(::SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0), 0);
    key(VK_DOWN);
    key(VK_DOWN);
    key(VK_RETURN);
    EXPECT_EQ(grid.take(), (Log{"verify window 0 1", "finish window 0 1 0"}));
    EXPECT_STREQ(grid.GetCellText(0, 1), L"window");
    EXPECT_FALSE(grid.IsEditing());

    key(VK_F4);
    ASSERT_TRUE(grid.IsEditing());
    grid.take();
    key(VK_UP);
    key(VK_ESCAPE);
    EXPECT_EQ(grid.take(), (Log{"verify window 0 1", "finish window 0 1 1"}));
    EXPECT_STREQ(grid.GetCellText(0, 1), L"window");
}

TEST_F(Editing, ADropListFindsItsWayThroughHundredsOfNames) {
    std::wstring names = L"Bolt\nbolt 8\nborder\n\x05D3\x05DC\x05EA\n";
    for (int number = 100; number < 700; ++number) {
        names += L"Part " + std::to_wstring(number) + L"\n";
    }
    grid.SetCellTypeIndex(0, 5, corvanes::type_drop_list);
    grid.SetCellLabel(0, 5, names.c_str());
    grid.GotoCell(0, 5);
    key(VK_F4);
    const HWND list = ::GetFocus();
    const auto chosen = [list] { return static_cast<int>(::SendMessageW(list, CB_GETCURSEL, 0, 0)); };
    const auto unfolded = [list] { return ::SendMessageW(list, CB_GETDROPPEDSTATE, 0, 0) != 0; };
    EXPECT_EQ(chosen(), -1);
    type(L"b");
    EXPECT_EQ(chosen(), 0);
    type(L"b");
    EXPECT_EQ(chosen(), 1) << "the same letter again: the next one";
    type(L"\bbor");
    EXPECT_EQ(chosen(), 2);
    type(L"x");
    EXPECT_EQ(chosen(), 2) << "no such name";
    type(L"\bPART 35");
    EXPECT_EQ(chosen(), 4 + 250);
    EXPECT_TRUE(unfolded()) << "letters do not close the list";
    key(VK_NEXT);
    EXPECT_GT(chosen(), 4 + 250);
    key(VK_PRIOR);
    EXPECT_EQ(chosen(), 4 + 250);
    key(VK_END);
    EXPECT_EQ(chosen(), 603);
    key(VK_UP);
    key(VK_RETURN);
    EXPECT_STREQ(grid.GetCellText(0, 5), L"Part 698");
    // When the focus leaves, the list closes, and nothing is chosen.
    key(VK_F4);
    ASSERT_TRUE(unfolded());
    EXPECT_EQ(chosen(), 602);
    key(VK_HOME);
    frame.SetFocus();
    pump();
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_FALSE(::IsWindowVisible(list));
    EXPECT_STREQ(grid.GetCellText(0, 5), L"Part 698");
}

TEST_F(Editing, ADropListUnfoldsUpwardsWhereThereIsNoRoomBelow) {
    CRect place;
    frame.GetWindowRect(&place);
    const int bottom = ::GetSystemMetrics(SM_CYSCREEN);
    frame.SetWindowPos(nullptr, place.left, bottom - place.Height(), 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    grid.SetCellTypeIndex(0, 9, corvanes::type_drop_list);
    grid.SetCellLabel(0, 9, L"a\nb\nc\nd\ne\nf\ng\nh\n");
    grid.GotoCell(0, 9);
    hold({VK_MENU});
    ::SendMessageW(::GetFocus(), WM_SYSKEYDOWN, VK_DOWN, 1);
    release_keys();
    pump();
    COMBOBOXINFO list{};
    list.cbSize = sizeof list;
    ASSERT_TRUE(::GetComboBoxInfo(::GetFocus(), &list)) << "Alt and the arrow open it too";
    RECT unfolded;
    RECT field;
    ::GetWindowRect(list.hwndList, &unfolded);
    ::GetWindowRect(list.hwndCombo, &field);
    EXPECT_LE(unfolded.bottom, field.top + 1);
    key(VK_ESCAPE);
    frame.SetWindowPos(nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
}

TEST_F(Editing, ACheckBoxTogglesUnlessItsOwnerRefuses) {
    grid.SetCellTypeIndex(2, 0, corvanes::type_check_box);
    grid.SetCellText(2, 0, L"1");
    click(grid.GetGrid(), 250, 10);
    EXPECT_STREQ(grid.GetCellText(2, 0), L"0");
    type(L" ");
    EXPECT_STREQ(grid.GetCellText(2, 0), L"1");
    grid.finished = 0;
    type(L" ");
    EXPECT_STREQ(grid.GetCellText(2, 0), L"1");
}

}  // namespace
