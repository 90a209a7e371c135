#include "afxctrls_.h"

#include <gtest/gtest.h>

#include "afxmenu_.h"
#include "test_windows.h"

namespace {

TEST(Controls, AnswerThroughTheirObjects) {
    OwnerWindow parent;
    CListBox list;
    ASSERT_TRUE(list.Create(WS_CHILD, CRect(0, 0, 50, 50), &parent, 1));
    list.AddString(L"one");
    list.InsertString(0, L"zero");
    list.SetItemData(1, DWORD_PTR{1} << 40);
    list.SetCurSel(1);
    CString text;
    list.GetText(list.GetCurSel(), text);
    EXPECT_EQ(text, L"one");
    EXPECT_EQ(list.GetItemData(1), DWORD_PTR{1} << 40);
    EXPECT_EQ(list.FindStringExact(-1, L"ZERO"), 0);
    list.GetText(7, text);
    EXPECT_EQ(text, L"");

    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 50, 20), &parent, 2));
    edit.SetWindowText(L"abcd");
    edit.SetSel(1, 3);
    edit.ReplaceSel(L"-");
    edit.GetWindowText(text);
    EXPECT_EQ(text, L"a-d");
    int first = 0, last = 0;
    edit.SetSel(0, -1);
    edit.GetSel(first, last);
    EXPECT_EQ(CPoint(first, last), CPoint(0, 3));

    CComboBox combo;
    ASSERT_TRUE(combo.Create(WS_CHILD | CBS_DROPDOWNLIST, CRect(0, 0, 50, 80), &parent, 3));
    combo.AddString(L"choice");
    combo.SetCurSel(0);
    combo.GetLBText(0, text);
    EXPECT_EQ(text, L"choice");

    CScrollBar bar;
    ASSERT_TRUE(bar.Create(WS_CHILD | SBS_VERT, CRect(0, 0, 20, 50), &parent, 4));
    bar.SetScrollRange(0, 100000);
    SCROLLINFO info{0, SIF_PAGE | SIF_POS, 0, 0, 10, 70000, 0};
    bar.SetScrollInfo(&info);
    EXPECT_TRUE(bar.GetScrollInfo(&info));
    EXPECT_EQ(info.nPos, 70000);
    EXPECT_EQ(info.nMax, 100000);
}

TEST(Controls, MoveAndChangeStyleThroughTheWindow) {
    OwnerWindow parent;
    CStatic label;
    ASSERT_TRUE(label.Create(L"x", WS_CHILD, CRect(0, 0, 10, 10), &parent));
    label.MoveWindow(CRect(10, 20, 40, 30));
    label.CenterWindow();
    CRect place, around;
    label.GetWindowRect(place);
    parent.ScreenToClient(place);
    parent.GetClientRect(around);
    EXPECT_EQ(place.left, (around.right - 30) / 2);
    EXPECT_TRUE(label.ModifyStyle(0, WS_BORDER));
    EXPECT_FALSE(label.ModifyStyle(0, WS_BORDER));
    label.SetOwner(&label);
    EXPECT_EQ(label.GetOwner(), &label);
    label.SetOwner(nullptr);
    EXPECT_EQ(label.GetOwner(), &parent);
    EXPECT_EQ(label.GetTopLevelParent(), &parent);
}

TEST(Menu, BelongsToItsObject) {
    HMENU handle = nullptr;
    {
        CMenu menu;
        ASSERT_TRUE(menu.CreatePopupMenu());
        CMenu sub;
        sub.CreatePopupMenu();
        sub.AppendMenu(MF_STRING, 5, L"&Five");
        menu.AppendMenu(MF_POPUP, reinterpret_cast<UINT_PTR>(sub.Detach()), L"Sub");
        EXPECT_EQ(menu.GetSubMenu(0)->GetMenuItemID(0), 5u);
        handle = menu;
    }
    EXPECT_FALSE(::IsMenu(handle));
}

}  // namespace
