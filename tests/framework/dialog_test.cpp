#include "afxdlg_.h"

#include <gtest/gtest.h>

#include "afxdd_.h"
#include "test_resources.h"
#include "test_windows.h"

namespace {

/// A dialog whose start and whose button run a function of the test.
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

    std::function<void()> on_start, on_press;

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
        CDataExchange exchange(&running, TRUE);
        CStatic missing;
        EXPECT_THROW(DDX_Control(&exchange, 9999, missing), std::logic_error);
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

TEST(Dialog, ReturnPressesTheButtonThatHasTheFocus) {
    OwnerWindow owner;
    TestDialog clicked(&owner);
    clicked.on_press = [&] { clicked.EndDialog(6); };
    owner.on_idle = [](CWnd& running) { type_key(*running.GetDlgItem(IDC_PRESS), VK_RETURN); };
    EXPECT_EQ(clicked.DoModal(), 6) << "a click gives the focus in the same way";
    // This dialog has no default button, and its one button is its first control.
    TestDialog dialog(&owner, IDD_ONE_BUTTON);
    dialog.on_press = [&] { dialog.EndDialog(7); };
    owner.on_idle = [](CWnd&) { ::PostMessageW(::GetFocus(), WM_KEYDOWN, VK_RETURN, 1); };
    EXPECT_EQ(dialog.DoModal(), 7);
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

}  // namespace
