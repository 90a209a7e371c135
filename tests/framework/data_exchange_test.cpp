#include "afxdd_.h"

#include <gtest/gtest.h>

#include "test_resources.h"
#include "test_windows.h"

namespace {

class FieldsDialog : public CDialog {
    DECLARE_MESSAGE_MAP()

  public:
    FieldsDialog() { Create(IDD_FIELDS); }

    CStatic label;
    int number = 12, tick = 1, changes = 0;
    CString name = L"\x05d0\x05d1";

  protected:
    void DoDataExchange(CDataExchange* exchange) override {
        DDX_Control(exchange, IDC_LABEL, label);
        DDX_Text(exchange, IDC_NUMBER, number);
        DDX_Text(exchange, IDC_NAME, name);
        DDX_Check(exchange, IDC_TICK, tick);
    }

  private:
    void OnNumberChange() { ++changes; }
};

BEGIN_MESSAGE_MAP(FieldsDialog, CDialog)
    ON_EN_CHANGE(IDC_NUMBER, &ThisClass::OnNumberChange)
END_MESSAGE_MAP()

TEST(DataExchange, MovesValuesBothWays) {
    FieldsDialog dialog;
    EXPECT_EQ(dialog.GetDlgItemInt(IDC_NUMBER), 12u);
    EXPECT_EQ(dialog.IsDlgButtonChecked(IDC_TICK), 1u);
    EXPECT_EQ(dialog.GetDlgItem(IDC_LABEL), &dialog.label);
    EXPECT_EQ(dialog.changes, 0);  // notifications are ignored while values move

    dialog.SetDlgItemText(IDC_NUMBER, L" -345 ");
    dialog.SetDlgItemText(IDC_NAME, L"");
    dialog.CheckDlgButton(IDC_TICK, 0);
    EXPECT_EQ(dialog.changes, 1);
    EXPECT_TRUE(dialog.UpdateData());
    EXPECT_EQ(dialog.number, -345);
    EXPECT_EQ(dialog.tick, 0);
    EXPECT_EQ(dialog.name, L"");
}

/// Answers the next message box of this thread, and keeps its text.
class BoxAnswer {
  public:
    BoxAnswer() : hook_(::SetWindowsHookExW(WH_CBT, answer, nullptr, ::GetCurrentThreadId())) { text().Empty(); }
    ~BoxAnswer() { ::UnhookWindowsHookEx(hook_); }
    static CString& text() {
        static CString the_text;
        return the_text;
    }

  private:
    static LRESULT CALLBACK answer(int code, WPARAM wParam, LPARAM lParam) {
        const HWND window = reinterpret_cast<HWND>(wParam);
        const HWND message = ::GetDlgItem(window, 0xffff);
        if (code == HCBT_ACTIVATE && message) {
            CWnd::FromHandle(message)->GetWindowText(text());
            ::PostMessageW(window, WM_COMMAND, IDOK, 0);
        }
        return ::CallNextHookEx(nullptr, code, wParam, lParam);
    }
    HHOOK hook_;
};

TEST(DataExchange, RefusesWhatIsNoInteger) {
    FieldsDialog dialog;
    dialog.ShowWindow(SW_SHOW);
    for (const wchar_t* text : {L"", L"x", L"1x", L"2147483648", L"1.5"}) {
        const BoxAnswer box;
        dialog.SetDlgItemText(IDC_NUMBER, text);
        dialog.SetDlgItemText(IDC_NAME, L"not read");
        EXPECT_FALSE(dialog.UpdateData()) << text;
        EXPECT_EQ(BoxAnswer::text(), L"Please enter an integer.");
    }
    EXPECT_EQ(dialog.number, 12);
    EXPECT_NE(dialog.name, L"not read");
    EXPECT_EQ(CWnd::GetFocus()->GetDlgCtrlID(), IDC_NUMBER);
}

TEST(DataExchange, ThrowsForAMissingControl) {
    OwnerWindow empty;
    CDataExchange exchange(&empty, TRUE);
    CStatic label;
    EXPECT_THROW(DDX_Control(&exchange, IDC_LABEL, label), std::logic_error);
}

}  // namespace
