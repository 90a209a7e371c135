// How windows come: the order of the first messages, and refusals.
#include "afxwnd_.h"

#include <gtest/gtest.h>

#include "test_windows.h"

namespace {

class Recorder : public CWnd {
  public:
    std::vector<UINT> first_messages;
    bool refuse_before = false;
    LRESULT create_result = 0;
    int ends = 0;

  protected:
    BOOL PreCreateWindow(CREATESTRUCTW& creation) override {
        creation.cx += 7;
        return !refuse_before && CWnd::PreCreateWindow(creation);
    }
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == WM_NCCREATE || message == WM_CREATE || message == WM_NCDESTROY) {
            first_messages.push_back(message);
        }
        const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
        return message == WM_CREATE ? create_result : result;
    }
    void PostNcDestroy() override { ++ends; }
};

BOOL create(CWnd& window, LPCWSTR class_name = nullptr) {
    return window.CreateEx(0, class_name, L"title", WS_POPUP, 10, 20, 30, 40, nullptr, nullptr);
}

TEST(Creation, TheObjectGetsTheFirstMessage) {
    for (LPCWSTR class_name : {LPCWSTR{nullptr}, L"STATIC"}) {
        Recorder window;
        ASSERT_TRUE(create(window, class_name));
        EXPECT_EQ(window.first_messages, (std::vector<UINT>{WM_NCCREATE, WM_CREATE}));
        CRect place;
        window.GetWindowRect(place);
        EXPECT_EQ(place, CRect(10, 20, 47, 60));
        CString title;
        window.GetWindowText(title);
        EXPECT_EQ(title, L"title");
        EXPECT_FALSE(create(window));  // it has a window
    }
}

TEST(Creation, RefusalsLeaveTheObjectWithoutAWindow) {
    Recorder refused;
    refused.refuse_before = true;
    EXPECT_FALSE(create(refused));
    EXPECT_EQ(refused.ends, 0);

    Recorder failed;
    failed.create_result = -1;
    EXPECT_FALSE(create(failed));
    EXPECT_EQ(failed.m_hWnd, nullptr);
    EXPECT_EQ(failed.ends, 1);
    failed.create_result = 0;
    EXPECT_TRUE(create(failed));

    Recorder unknown;
    EXPECT_FALSE(create(unknown, L"no such class"));
    EXPECT_EQ(unknown.ends, 1);
    EXPECT_TRUE(unknown.first_messages.empty());
}

}  // namespace
