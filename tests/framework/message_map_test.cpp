#include "afxmsg_.h"

#include <commctrl.h>

#include <gtest/gtest.h>

#include "test_windows.h"

namespace {

std::wstring text(const wchar_t* format, ...) {
    wchar_t result[80];
    va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(result, std::size(result), format, arguments);
    va_end(arguments);
    return result;
}

/// Writes down what its handlers get.
class Listener : public CWnd {
    DECLARE_MESSAGE_MAP()

  public:
    Listener() { CreateEx(0, nullptr, L"", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100, nullptr, nullptr); }

    std::vector<std::wstring> take() { return std::exchange(log, {}); }
    std::vector<std::wstring> log;

  protected:
    void OnSize(UINT kind, int width, int height) { log.push_back(text(L"size %u %d %d", kind, width, height)); }
    void OnKeyDown(UINT key, UINT repeat, UINT flags) { log.push_back(text(L"key %u %u %x", key, repeat, flags)); }
    void OnChar(UINT character, UINT, UINT) { log.push_back(text(L"char %c", character)); }
    void OnTimer(UINT_PTR id) { log.push_back(text(L"timer %I64u", id)); }
    void OnLButtonDown(UINT keys, CPoint at) { log.push_back(text(L"down %u %d,%d", keys, at.x, at.y)); }
    void OnVScroll(UINT code, UINT position, CScrollBar* bar) {
        log.push_back(text(L"scroll %u %u %s", code, position, bar ? L"bar" : L"window"));
    }
    BOOL OnMouseWheel(UINT, short delta, CPoint) {
        log.push_back(text(L"wheel %d", delta));
        return delta > 0;
    }
    HBRUSH OnCtlColor(CDC* dc, CWnd* control, UINT kind) {
        log.push_back(text(L"color %u %d", kind, control->GetDlgCtrlID()));
        dc->SetTextColor(RGB(255, 0, 0));
        return static_cast<HBRUSH>(::GetStockObject(WHITE_BRUSH));
    }
    UINT OnGetDlgCode() { return DLGC_WANTALLKEYS; }
    LRESULT OnPrivate(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) * 10 + lParam; }
    void OnOne() { log.push_back(L"command 1"); }
    void OnChange() { log.push_back(L"changed"); }
    void OnClick(NMHDR* header, LRESULT* result) {
        log.push_back(text(L"notify %d", static_cast<int>(header->code)));
        *result = 77;
    }
};

BEGIN_MESSAGE_MAP(Listener, CWnd)
    ON_WM_SIZE()
    ON_WM_KEYDOWN()
    ON_WM_CHAR()
    ON_WM_TIMER()
    ON_WM_LBUTTONDOWN()
    ON_WM_VSCROLL()
    ON_WM_MOUSEWHEEL()
    ON_WM_CTLCOLOR()
    ON_WM_GETDLGCODE()
    ON_MESSAGE(WM_USER + 100, &ThisClass::OnPrivate)
    ON_COMMAND(1, &ThisClass::OnOne)
    ON_EN_CHANGE(20, &ThisClass::OnChange)
    ON_NOTIFY(NM_CLICK, 20, &ThisClass::OnClick)
END_MESSAGE_MAP()

using Log = std::vector<std::wstring>;

TEST(MessageMap, CracksMessagesIntoArguments) {
    Listener window;
    window.take();
    window.SendMessage(WM_SIZE, SIZE_MAXIMIZED, MAKELPARAM(300, 40000));
    window.SendMessage(WM_KEYDOWN, VK_LEFT, MAKELPARAM(2, 0xC14B));
    window.SendMessage(WM_CHAR, 0x05d0, 1);
    window.SendMessage(WM_TIMER, UINT_PTR{1} << 33);
    window.SendMessage(WM_LBUTTONDOWN, MK_SHIFT, MAKELPARAM(-3, 5));
    window.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_THUMBTRACK, 9));
    window.SendMessage(WM_VSCROLL, MAKEWPARAM(SB_TOP, 0), reinterpret_cast<LPARAM>(window.m_hWnd));
    EXPECT_EQ(window.take(), (Log{L"size 2 300 40000", L"key 37 2 c14b", L"char \x05d0", L"timer 8589934592",
                                  L"down 4 -3,5", L"scroll 5 9 window", L"scroll 6 0 bar"}));
    EXPECT_EQ(window.SendMessage(WM_GETDLGCODE), DLGC_WANTALLKEYS);
    EXPECT_EQ(window.SendMessage(WM_USER + 100, 4, 2), 42);
    EXPECT_EQ(window.SendMessage(WM_USER + 101, 4, 2), 0);
}

TEST(MessageMap, RoutesCommandsAndNotifications) {
    Listener window;
    CEdit edit;
    ASSERT_TRUE(edit.Create(WS_CHILD, CRect(0, 0, 50, 20), &window, 20));
    window.take();
    EXPECT_NE(window.SendMessage(WM_COMMAND, 1), 0);
    EXPECT_EQ(window.SendMessage(WM_COMMAND, 2), 0);
    window.SendMessage(WM_COMMAND, MAKEWPARAM(1, BN_CLICKED), reinterpret_cast<LPARAM>(edit.m_hWnd));
    window.SendMessage(WM_COMMAND, MAKEWPARAM(1, BN_SETFOCUS), reinterpret_cast<LPARAM>(edit.m_hWnd));
    edit.SetWindowText(L"x");
    NMHDR header{edit.m_hWnd, 20, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(window.SendMessage(WM_NOTIFY, 20, reinterpret_cast<LPARAM>(&header)), 77);
    EXPECT_EQ(window.take(), (Log{L"command 1", L"command 1", L"changed", L"notify -2"}));
}

TEST(MessageMap, ResultsReachTheSystem) {
    Listener window;
    CStatic label;
    ASSERT_TRUE(label.Create(L"text", WS_CHILD, CRect(0, 0, 50, 20), &window, 30));
    window.take();
    CClientDC dc(&label);
    const LRESULT brush = window.SendMessage(WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc.m_hDC),
                                             reinterpret_cast<LPARAM>(label.m_hWnd));
    EXPECT_EQ(reinterpret_cast<HGDIOBJ>(brush), ::GetStockObject(WHITE_BRUSH));
    EXPECT_EQ(dc.GetTextColor(), RGB(255, 0, 0));
    window.SendMessage(WM_MOUSEWHEEL, MAKEWPARAM(0, -120));
    EXPECT_EQ(window.take(), (Log{L"color 6 30", L"wheel -120"}));
}

/// Handles what its base handles, and hands some of it on.
class QuietListener : public Listener {
    DECLARE_MESSAGE_MAP()

  protected:
    void OnTimer(UINT_PTR) { log.push_back(L"derived"); }
    void OnOneToo() { log.push_back(L"derived 1"); }
};

BEGIN_MESSAGE_MAP(QuietListener, Listener)
    ON_WM_TIMER()
    ON_COMMAND(1, &ThisClass::OnOneToo)
END_MESSAGE_MAP()

TEST(MessageMap, TheDerivedClassComesFirst) {
    QuietListener window;
    window.take();
    window.SendMessage(WM_TIMER, 3);
    window.SendMessage(WM_CHAR, L'a', 1);
    EXPECT_NE(window.SendMessage(WM_COMMAND, 1), 0);
    EXPECT_EQ(window.take(), (Log{L"derived", L"char a", L"derived 1"}));
}

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

TEST(Exceptions, DoNotKeepPaintingDueNorTheObjectAttached) {
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
