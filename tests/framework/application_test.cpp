#include "afxapp_.h"

#include <gtest/gtest.h>

#include "test_windows.h"

namespace {

TEST(Application, EndsWithItsMainWindow) {
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    CWinApp app(L"Test App");
    OwnerWindow main;
    app.m_pMainWnd = &main;
    EXPECT_EQ(AfxGetApp(), &app);
    EXPECT_EQ(AfxGetMainWnd(), &main);
    main.DestroyWindow();
    EXPECT_EQ(AfxGetMainWnd(), nullptr);
    MSG message;
    EXPECT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));
}

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

TEST(Application, RegistersAWindowClassOnce) {
    const HCURSOR arrow = ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW));
    const LPCWSTR name = AfxRegisterWndClass(CS_DBLCLKS, arrow);
    EXPECT_EQ(AfxRegisterWndClass(CS_DBLCLKS, arrow), name);
    EXPECT_STRNE(AfxRegisterWndClass(CS_DBLCLKS), name);
    WNDCLASSW description{};
    ASSERT_TRUE(::GetClassInfoW(AfxGetInstanceHandle(), name, &description));
    EXPECT_EQ(description.hCursor, arrow);
}

}  // namespace
