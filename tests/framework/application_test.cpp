#include "afxapp_.h"

#include <gtest/gtest.h>

#include "afxmenu_.h"
#include "test_windows.h"

namespace {

class Accelerated : public CWnd {
  public:
    int keys = 0;
    BOOL PreTranslateMessage(MSG* message) override {
        if (message->message == WM_KEYDOWN && message->wParam == VK_F9) {
            throw std::runtime_error("F9");
        }
        keys += message->message == WM_KEYDOWN;
        return message->wParam == VK_F8;
    }
};

TEST(Application, OffersKeysToTheParentsBeforeTheWindow) {
    const ExceptionReports reports;
    Accelerated parent;
    parent.CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW, 0, 0, 9, 9, nullptr, nullptr);
    CEdit child;
    child.Create(WS_CHILD, CRect(0, 0, 9, 9), &parent, 1);
    for (WPARAM key : {VK_F7, VK_F8, VK_F9}) {
        child.PostMessage(WM_KEYDOWN, key);
    }
    run_waiting_messages();
    EXPECT_EQ(parent.keys, 2);
    EXPECT_EQ(ExceptionReports::texts(), (std::vector<std::wstring>{L"F9"}));
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
        EXPECT_EQ(::GetMenuItemID(::GetSubMenu(menu, 0), 0), 5u);
        handle = menu;
    }
    EXPECT_FALSE(::IsMenu(handle));
}

}  // namespace
