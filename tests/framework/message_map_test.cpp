#include "afxmsg_.h"

#include <gtest/gtest.h>

#include "test_windows.h"

namespace {

using Log = std::vector<std::wstring>;

struct Handlers : CWnd {
    void Right(UINT, int, int) {}
    void FewArguments(UINT, int) {}
    void OtherType(UINT, int, long) {}
    int OtherResult(UINT, int, int) { return 0; }
};

template <auto Handler, class = void>
constexpr bool fits_size = false;
template <auto Handler>
constexpr bool fits_size<Handler, std::void_t<decltype(framework::Signature<void(UINT, int, int)>::call(
                                      nullptr, Handler, {}, std::declval<AFX_MESSAGE&>()))>> = true;

TEST(MessageMap, AHandlerOfAnotherSignatureDoesNotCompile) {
    EXPECT_TRUE(fits_size<&Handlers::Right>);
    EXPECT_FALSE(fits_size<&Handlers::FewArguments>);
    EXPECT_FALSE(fits_size<&Handlers::OtherType>);
    EXPECT_FALSE(fits_size<&Handlers::OtherResult>);
}

/// Throws from the handler of one message.
class Thrower : public CWnd {
  public:
    explicit Thrower(UINT message) : message_(message) {}
    int paintings = 0;
    bool ended = false;

  protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        paintings += message == WM_PAINT;
        if (message == message_) {
            throw std::runtime_error("thrown");
        }
        if (message == WM_USER + 1) {
            throw 1;
        }
        return CWnd::WindowProc(message, wParam, lParam);
    }
    void PostNcDestroy() override { ended = true; }

  private:
    UINT message_;
};

BOOL create_popup(CWnd& window, DWORD style = 0) {
    return window.CreateEx(0, nullptr, L"", WS_POPUP | style, 0, 0, 50, 50, nullptr, nullptr);
}

TEST(Exceptions, AreReportedAndGoNoFurther) {
    const ExceptionReports reports;
    Thrower window(WM_USER);
    ASSERT_TRUE(create_popup(window));
    EXPECT_EQ(window.SendMessage(WM_USER), 0);
    EXPECT_EQ(window.SendMessage(WM_USER + 1), 0);
    EXPECT_EQ(ExceptionReports::texts(), (Log{L"thrown", L"An unknown error occurred."}));
}

TEST(Exceptions, FailTheCreation) {
    const ExceptionReports reports;
    for (UINT message : {WM_NCCREATE, WM_CREATE}) {
        Thrower window(message);
        EXPECT_FALSE(create_popup(window));
        EXPECT_EQ(window.m_hWnd, nullptr);
        EXPECT_EQ(ExceptionReports::texts(), Log(1, L"thrown"));
        ExceptionReports::texts().clear();
    }
}

TEST(Exceptions, LeaveNoPaintingDueAndNoObjectAttached) {
    const ExceptionReports reports;
    Thrower painter(WM_PAINT);
    ASSERT_TRUE(create_popup(painter, WS_VISIBLE));
    painter.RedrawWindow();
    const int paintings = painter.paintings;
    EXPECT_GE(paintings, 1);
    run_waiting_messages();
    EXPECT_EQ(painter.paintings, paintings);

    Thrower dying(WM_NCDESTROY);
    ASSERT_TRUE(create_popup(dying));
    EXPECT_TRUE(dying.DestroyWindow());
    EXPECT_TRUE(dying.ended);
    EXPECT_EQ(dying.m_hWnd, nullptr);
}

}  // namespace
