#include "afxctrls_.h"

#include <gtest/gtest.h>

#include "afxmenu_.h"
#include "test_windows.h"

namespace {

TEST(Controls, CenterInTheirParent) {
    OwnerWindow parent;
    CStatic label;
    ASSERT_TRUE(label.Create(L"", WS_CHILD, CRect(10, 20, 40, 50), &parent));
    label.CenterWindow();
    CRect place, around;
    label.GetWindowRect(place);
    parent.ScreenToClient(place);
    parent.GetClientRect(around);
    EXPECT_EQ(place.left, (around.right - 30) / 2);
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
        EXPECT_EQ(::GetMenuItemID(*menu.GetSubMenu(0), 0), 5u);
        handle = menu;
    }
    EXPECT_FALSE(::IsMenu(handle));
}

}  // namespace
