#include "tests/grid/grid_window.h"

using namespace grid_test;

namespace {

constexpr UINT placeholder_id = 216;

// A dialog with a button before the grid's placeholder and one after it.
class DialogWithGrid : public CDialog {
  public:
    RecordingGrid grid;
    CRect placeholder;
    bool cancelled = false;

    bool Open() {
        append_dialog();
        append_control(L"BUTTON", 1, WS_TABSTOP, 5);
        append_control(L"STATIC", placeholder_id, WS_DISABLED, 30);
        append_control(L"BUTTON", 2, WS_TABSTOP, 120);
        return CreateIndirect(reinterpret_cast<const DLGTEMPLATE*>(words_.data())) != FALSE;
    }
    BOOL OnInitDialog() override {
        CDialog::OnInitDialog();
        ::SetWindowLongPtrW(GetDlgItem(placeholder_id)->m_hWnd, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
        ::EnableWindow(GetDlgItem(placeholder_id)->m_hWnd, TRUE);
        GetDlgItem(placeholder_id)->GetWindowRect(&placeholder);
        return TRUE;
    }
    void OnCancel() override { cancelled = true; }

  private:
    void append_dialog() { append({LOWORD(style), HIWORD(style), 0, 0, 3, 10, 10, 200, 150, 0, 0, 0}); }
    void append_control(const wchar_t* window_class, WORD id, DWORD extra, short y) {
        if (words_.size() % 2 != 0) {
            words_.push_back(0);
        }
        const DWORD control_style = WS_CHILD | WS_VISIBLE | extra;
        append({LOWORD(control_style), HIWORD(control_style), 0, 0, 5, static_cast<WORD>(y), 150,
                static_cast<WORD>(id == placeholder_id ? 80 : 14), id});
        for (; *window_class != 0; ++window_class) {
            words_.push_back(*window_class);
        }
        append({0, 0, 0});
    }
    void append(std::initializer_list<WORD> words) { words_.insert(words_.end(), words); }

    static constexpr DWORD style = WS_POPUP | WS_CAPTION | WS_VISIBLE;
    alignas(4) std::vector<WORD> words_;
};

class GridInDialog : public testing::Test {
  protected:
    void SetUp() override {
        ASSERT_TRUE(dialog.Open());
        ASSERT_TRUE(dialog.grid.AttachGrid(&dialog, placeholder_id));
        dialog.grid.SetRowCount(5);
        pump();
        dialog.grid.take();
    }
    void TearDown() override { dialog.DestroyWindow(); }
    // The key as it goes through the dialog's own loop.
    void key(UINT code) {
        ::PostMessageW(::GetFocus(), WM_KEYDOWN, code, 1);
        MSG message;
        while (::PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            if (!dialog.PreTranslateMessage(&message)) {
                ::TranslateMessage(&message);
                ::DispatchMessageW(&message);
            }
        }
    }

    DialogWithGrid dialog;
};

TEST_F(GridInDialog, TakesThePlaceholdersPlace) {
    RecordingGrid& grid = dialog.grid;
    EXPECT_EQ(dialog.GetDlgItem(placeholder_id), &grid);
    CRect place;
    grid.GetWindowRect(&place);
    EXPECT_EQ(place, dialog.placeholder);
    EXPECT_EQ(grid.GetExStyle() & WS_EX_CLIENTEDGE, WS_EX_CLIENTEDGE);
    EXPECT_EQ(::GetWindow(grid.m_hWnd, GW_HWNDPREV), dialog.GetDlgItem(1)->m_hWnd);
    EXPECT_EQ(::GetWindow(grid.m_hWnd, GW_HWNDNEXT), dialog.GetDlgItem(2)->m_hWnd);
    EXPECT_FALSE(grid.AttachGrid(&dialog, 1)) << "it has a window already";
    RecordingGrid other;
    EXPECT_FALSE(other.AttachGrid(&dialog, 999));
    EXPECT_EQ(other.take(), Log());
    EXPECT_TRUE(other.AttachGrid(&dialog, 2));
    EXPECT_EQ(other.take(), (Log{"setup", "cell -1 0 -1 -1"}));
}

TEST_F(GridInDialog, LeavesTabToTheDialogAndKeepsArrowsAndEscape) {
    RecordingGrid& grid = dialog.grid;
    dialog.GetDlgItem(1)->SetFocus();
    key(VK_TAB);
    ASSERT_EQ(::GetFocus(), grid.GetGrid().m_hWnd);
    key(VK_DOWN);
    key(VK_RIGHT);
    key(VK_ESCAPE);
    EXPECT_EQ(grid.take(), (Log{"key 40 0", "can move 0 0 0 1", "row 0 1", "cell 0 0 0 1", "key 39 0",
                                "can move 0 1 1 1", "cell 0 1 1 1", "key 27 0"}));
    EXPECT_FALSE(dialog.cancelled);
    key(VK_TAB);
    EXPECT_EQ(::GetFocus(), dialog.GetDlgItem(2)->m_hWnd);

    // An open editor has Enter, Tab and Escape for itself.
    grid.StartEdit(0, 0, 'x');
    key(VK_TAB);
    EXPECT_EQ(grid.GetCurrentColumn(), 1);
    grid.StartEdit();
    key(VK_ESCAPE);
    EXPECT_FALSE(dialog.cancelled);
    EXPECT_FALSE(grid.IsEditing());
    EXPECT_STREQ(grid.GetCellText(0, 0), L"x");
}

}  // namespace
