#include "afxdlg_.h"

#include <gtest/gtest.h>

#include "test_resources.h"
#include "test_windows.h"

namespace {

/// A dialog whose start and button are the test's to fill.
class TestDialog : public CDialog {
    DECLARE_MESSAGE_MAP()

  public:
    explicit TestDialog(CWnd* parent, UINT id = IDD_FIELDS) : CDialog(id, parent) {}
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        if (on_start) {
            on_start();
        }
        return TRUE;
    }
    void OnSetFont(CFont* font) override {
        if (on_font) {
            on_font(*font);
        }
        CDialog::OnSetFont(font);
    }

    std::function<void()> on_start, on_press;
    std::function<void(CFont&)> on_font;

  private:
    void OnPress() {
        if (on_press) {
            on_press();
        }
    }
};

BEGIN_MESSAGE_MAP(TestDialog, CDialog)
    ON_BN_CLICKED(IDC_PRESS, &ThisClass::OnPress)
END_MESSAGE_MAP()

void press(CWnd& dialog, int id) {
    dialog.GetDlgItem(id)->SendMessage(BM_CLICK);
}

void type_key(CWnd& control, WPARAM key) {
    control.SetFocus();
    control.PostMessage(WM_KEYDOWN, key, 1);
}

TEST(Dialog, RunsOverItsDisabledOwner) {
    OwnerWindow owner;
    TestDialog dialog(&owner);
    std::vector<std::string> log;
    dialog.on_start = [&] {
        log.push_back(owner.IsWindowEnabled() ? "start, owner enabled" : "start, owner disabled");
    };
    dialog.on_press = [&] { dialog.EndDialog(7); };
    owner.on_idle = [&](CWnd& running) {
        log.push_back(&running == &dialog && running.IsWindowVisible() ? "idle, visible" : "idle, not visible");
        press(running, IDC_PRESS);
        log.push_back("pressed");
    };
    EXPECT_EQ(dialog.DoModal(), 7);
    EXPECT_EQ(log, (std::vector<std::string>{"start, owner disabled", "idle, visible", "pressed"}));
    EXPECT_EQ(dialog.m_hWnd, nullptr);
    EXPECT_TRUE(owner.IsWindowEnabled());
    log.clear();
    EXPECT_EQ(dialog.DoModal(), 7);  // once more with the same object
    EXPECT_EQ(log.size(), 3u);

    owner.EnableWindow(FALSE);
    EXPECT_EQ(dialog.DoModal(), 7);
    EXPECT_FALSE(owner.IsWindowEnabled());
}

TEST(Dialog, TheLaterResultWins) {
    OwnerWindow owner;
    TestDialog dialog(&owner);
    dialog.on_press = [&] {
        dialog.EndDialog(IDCANCEL);
        EXPECT_TRUE(::IsWindow(dialog.m_hWnd));
        dialog.EndDialog(IDOK);
    };
    owner.on_idle = [&](CWnd& running) { press(running, IDC_PRESS); };
    EXPECT_EQ(dialog.DoModal(), IDOK);

    dialog.on_start = dialog.on_press;  // before the loop has begun
    owner.on_idle = [](CWnd&) { ADD_FAILURE() << "the dialog was ended at its start"; };
    EXPECT_EQ(dialog.DoModal(), IDOK);
}

TEST(Dialog, KeysEndItAsTheSystemSays) {
    OwnerWindow owner;
    TestDialog dialog(&owner);
    owner.on_idle = [&](CWnd& running) { type_key(*running.GetDlgItem(IDC_NAME), VK_ESCAPE); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    owner.on_idle = [&](CWnd& running) { type_key(*running.GetDlgItem(IDC_NAME), VK_RETURN); };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    owner.on_idle = [&](CWnd& running) { type_key(*running.GetDlgItem(IDC_NOTES), VK_ESCAPE); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
    owner.on_idle = [&](CWnd& running) { running.PostMessage(WM_SYSCOMMAND, SC_CLOSE); };
    EXPECT_EQ(dialog.DoModal(), IDCANCEL);
}

TEST(Dialog, ReturnPressesTheButtonThatHasTheFocus) {
    OwnerWindow owner;
    TestDialog clicked(&owner);
    clicked.on_press = [&] { clicked.EndDialog(6); };
    owner.on_idle = [](CWnd& running) { type_key(*running.GetDlgItem(IDC_PRESS), VK_RETURN); };
    EXPECT_EQ(clicked.DoModal(), 6) << "a click gives the focus in the same way";
    // Without a default button of its own, and with nothing before its one button.
    TestDialog dialog(&owner, IDD_ONE_BUTTON);
    dialog.on_press = [&] { dialog.EndDialog(7); };
    owner.on_idle = [](CWnd&) { ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_RETURN, 1); };
    EXPECT_EQ(dialog.DoModal(), 7);
}

TEST(Dialog, Nests) {
    OwnerWindow owner;
    TestDialog outer(&owner), inner(&outer);
    INT_PTR inner_result = 0;
    bool outer_disabled = false, owner_stays_disabled = false;
    inner.on_start = [&] {
        outer_disabled = !outer.IsWindowEnabled();
        inner.PostMessage(WM_COMMAND, IDOK);
    };
    outer.on_press = [&] {
        inner_result = inner.DoModal();
        owner_stays_disabled = !owner.IsWindowEnabled() && outer.IsWindowEnabled();
        outer.EndDialog(static_cast<int>(inner_result) + 40);
    };
    owner.on_idle = [&](CWnd& running) { press(running, IDC_PRESS); };
    EXPECT_EQ(outer.DoModal(), 41);
    EXPECT_EQ(inner_result, IDOK);
    EXPECT_TRUE(outer_disabled && owner_stays_disabled && owner.IsWindowEnabled());
}

TEST(Dialog, TakesAForeignWindowsChildAsItsParent) {
    const HWND top =
        ::CreateWindowExW(0, L"STATIC", L"", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90, nullptr, nullptr, nullptr, nullptr);
    const HWND child = ::CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 9, 9, top, nullptr, nullptr, nullptr);
    TestDialog dialog(CWnd::FromHandle(child));
    HWND owner = nullptr;
    dialog.on_start = [&] {
        owner = ::GetWindow(dialog.m_hWnd, GW_OWNER);
        EXPECT_FALSE(::IsWindowEnabled(top));
        dialog.PostMessage(WM_COMMAND, IDOK);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(owner, top);
    EXPECT_TRUE(::IsWindowEnabled(top));
    EXPECT_EQ(CWnd::FromHandlePermanent(top), nullptr);
    EXPECT_TRUE(::DestroyWindow(top));
}

TEST(Dialog, GivesMinusOneWhenItCannotRun) {
    OwnerWindow owner;
    EXPECT_EQ(TestDialog(&owner, 9999).DoModal(), -1);

    const ExceptionReports reports;
    TestDialog broken(&owner);
    broken.on_start = [] { throw std::runtime_error("no start"); };
    EXPECT_EQ(broken.DoModal(), -1);
    EXPECT_EQ(ExceptionReports::texts(), (std::vector<std::wstring>{L"no start"}));

    TestDialog destroyed(&owner);
    owner.on_idle = [](CWnd& running) { ::DestroyWindow(running.m_hWnd); };
    EXPECT_EQ(destroyed.DoModal(), -1);

    owner.on_idle = [](CWnd&) { ::PostQuitMessage(5); };
    EXPECT_EQ(TestDialog(&owner).DoModal(), -1);
    MSG message;
    ASSERT_TRUE(::PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE));  // left for the loop below
    EXPECT_EQ(message.wParam, 5u);
    EXPECT_TRUE(owner.IsWindowEnabled());
}

TEST(Dialog, ThrowingHandlersLeaveItOpen) {
    const ExceptionReports reports;
    OwnerWindow owner;
    TestDialog dialog(&owner);
    dialog.on_press = [] { throw std::runtime_error("pressed"); };
    owner.on_idle = [&](CWnd& running) {
        press(running, IDC_PRESS);
        running.PostMessage(WM_COMMAND, IDOK);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(ExceptionReports::texts(), (std::vector<std::wstring>{L"pressed"}));
}

TEST(Dialog, OffersItsFontToBeReplaced) {
    OwnerWindow owner;
    TestDialog dialog(&owner);
    std::vector<std::wstring> faces;
    dialog.on_font = [&](CFont& font) {
        LOGFONTW description{};
        font.GetLogFont(&description);
        faces.push_back(description.lfFaceName);
        lstrcpynW(description.lfFaceName, L"Courier", LF_FACESIZE);
        CFont courier;
        ASSERT_TRUE(courier.CreateFontIndirect(&description));
        ASSERT_TRUE(font.Attach(courier.Detach()));
        font.GetLogFont(&description);
        faces.push_back(description.lfFaceName);
    };
    owner.on_idle = [&](CWnd& running) {
        LOGFONTW description{};
        running.GetFont()->GetLogFont(&description);
        faces.push_back(description.lfFaceName);
        running.PostMessage(WM_COMMAND, IDOK);
    };
    EXPECT_EQ(dialog.DoModal(), IDOK);
    EXPECT_EQ(faces, (std::vector<std::wstring>{L"MS Sans Serif", L"Courier", L"MS Sans Serif"}));
}

TEST(Dialog, StandsBesideItsOwner) {
    OwnerWindow owner;
    CDialog modeless;
    ASSERT_TRUE(modeless.Create(IDD_FIELDS, &owner));
    EXPECT_TRUE(owner.IsWindowEnabled());
    modeless.GotoDlgCtrl(modeless.GetDlgItem(IDC_NAME));
    EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), IDC_NAME);
}

}  // namespace
