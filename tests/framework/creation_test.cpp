// Windows whose creation is refused.
#include "afxwnd_.h"

#include <gtest/gtest.h>

#include "test_windows.h"

namespace {

class Refuser : public CWnd {
  public:
    bool refuse_before = false;
    LRESULT create_result = 0;
    int ends = 0;

  protected:
    BOOL PreCreateWindow(CREATESTRUCTW& creation) override { return !refuse_before && CWnd::PreCreateWindow(creation); }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
        return message == WM_CREATE ? create_result : result;
    }
    void PostNcDestroy() override { ++ends; }
};

BOOL create(CWnd& window, LPCWSTR class_name = nullptr) {
    return window.CreateEx(0, class_name, L"title", WS_POPUP, 10, 20, 30, 40, nullptr, nullptr);
}

TEST(Creation, RefusalsLeaveTheObjectWithoutAWindow) {
    Refuser refused;
    refused.refuse_before = true;
    EXPECT_FALSE(create(refused));
    EXPECT_EQ(refused.ends, 0);

    Refuser failed;
    failed.create_result = -1;
    EXPECT_FALSE(create(failed));
    EXPECT_EQ(failed.m_hWnd, nullptr);
    EXPECT_EQ(failed.ends, 1);
    failed.create_result = 0;
    EXPECT_TRUE(create(failed));

    Refuser unknown;
    EXPECT_FALSE(create(unknown, L"no such class"));
    EXPECT_EQ(unknown.ends, 1);
}

}  // namespace
