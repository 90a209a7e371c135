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
    int tick = 1, changes = 0;
    CString name = L"\x05d0\x05d1";

  protected:
    void DoDataExchange(CDataExchange* exchange) override {
        DDX_Control(exchange, IDC_LABEL, label);
        DDX_Text(exchange, IDC_NAME, name);
        DDX_Check(exchange, IDC_TICK, tick);
    }

  private:
    void OnNameChange() { ++changes; }
};

BEGIN_MESSAGE_MAP(FieldsDialog, CDialog)
    ON_EN_CHANGE(IDC_NAME, &ThisClass::OnNameChange)
END_MESSAGE_MAP()

TEST(DataExchange, MovesValuesBothWays) {
    FieldsDialog dialog;
    CString shown;
    dialog.GetDlgItem(IDC_NAME)->GetWindowText(shown);
    EXPECT_EQ(shown, L"\x05d0\x05d1");
    EXPECT_EQ(dialog.IsDlgButtonChecked(IDC_TICK), 1u);
    EXPECT_EQ(dialog.GetDlgItem(IDC_LABEL), &dialog.label);
    EXPECT_EQ(dialog.changes, 0);  // notifications are ignored while values move

    dialog.GetDlgItem(IDC_NAME)->SetWindowText(L"other");
    dialog.GetDlgItem(IDC_TICK)->SendMessage(BM_SETCHECK, BST_UNCHECKED);
    EXPECT_EQ(dialog.changes, 1);
    EXPECT_TRUE(dialog.UpdateData());
    EXPECT_EQ(dialog.tick, 0);
    EXPECT_EQ(dialog.name, L"other");
}

TEST(DataExchange, ThrowsForAMissingControl) {
    OwnerWindow empty;
    CDataExchange exchange(&empty, TRUE);
    CStatic label;
    EXPECT_THROW(DDX_Control(&exchange, IDC_LABEL, label), std::logic_error);
}

}  // namespace
