#include "pricelist/template_dialog.h"

#include <cwchar>

#include "common/file_question.h"
#include "common/settings_files.h"
#include "grid/raised_flag.h"
#include "pricelist/price_list_file.h"
#include "resources/resource.h"

using namespace corvanes;

namespace {

BlockPriceDialog* the_open_dialog = nullptr;

/// The file that was created or opened last, for as long as the module is loaded.
std::wstring& current_file_name() {
    static std::wstring name;
    return name;
}

}  // namespace

BEGIN_MESSAGE_MAP(BlockPriceDialog, CDialog)
    ON_BN_CLICKED(IDC_TEMPLATE_INSERT_ROW, &BlockPriceDialog::OnInsertRow)
    ON_BN_CLICKED(IDC_TEMPLATE_DELETE_ROW, &BlockPriceDialog::OnDeleteRow)
    ON_BN_CLICKED(IDC_TEMPLATE_NEW, &BlockPriceDialog::OnNew)
    ON_BN_CLICKED(IDC_TEMPLATE_OPEN, &BlockPriceDialog::OnOpen)
    ON_BN_CLICKED(IDC_TEMPLATE_SAVE, &BlockPriceDialog::OnSave)
    ON_BN_CLICKED(IDC_TEMPLATE_SAVE_AS, &BlockPriceDialog::OnSaveAs)
    ON_BN_CLICKED(IDC_TEMPLATE_CLOSE, &BlockPriceDialog::OnClose)
    ON_WM_CLOSE()
    ON_BN_CLICKED(IDC_TEMPLATE_MOVE_UP, &BlockPriceDialog::OnMoveUp)
    ON_BN_CLICKED(IDC_TEMPLATE_MOVE_DOWN, &BlockPriceDialog::OnMoveDown)
    ON_WM_CTLCOLOR()
END_MESSAGE_MAP()

BlockPriceDialog::BlockPriceDialog(CWnd* parent) : CDialog(IDD_BOM_TEMPLATE, parent) {
    the_open_dialog = this;
}

BlockPriceDialog::~BlockPriceDialog() {
    if (the_open_dialog == this) {
        the_open_dialog = nullptr;
    }
}

BlockPriceDialog* BlockPriceDialog::open_dialog() {
    return the_open_dialog;
}

void BlockPriceDialog::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_TEMPLATE_MOVE_DOWN, move_down_);
    DDX_Control(exchange, IDC_TEMPLATE_MOVE_UP, move_up_);
    DDX_Control(exchange, IDC_TEMPLATE_DELETE_ROW, delete_row_);
    DDX_Control(exchange, IDC_TEMPLATE_INSERT_ROW, insert_row_);
    DDX_Control(exchange, IDC_TEMPLATE_SAVE_AS, save_as_);
    DDX_Control(exchange, IDC_TEMPLATE_SAVE, save_);
    DDX_Control(exchange, IDC_TEMPLATE_FILE, current_file_);
    DDX_Control(exchange, IDC_TEMPLATE_STATUS, status_);
}

BOOL BlockPriceDialog::PreTranslateMessage(MSG* message) {
    return grid_.TakesKey(*message) || CDialog::PreTranslateMessage(message) ? TRUE : FALSE;
}

BOOL BlockPriceDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    template_active_ = false;
    grid_attached_ = false;
    for (CButton* button : {&save_, &save_as_, &insert_row_, &delete_row_, &move_up_, &move_down_}) {
        button->EnableWindow(FALSE);
    }
    read_settings(template_settings_name, grid_.stored_widths(), current_file_name());
    return TRUE;
}

void BlockPriceDialog::OnSetFont(CFont* font) {
    LOGFONT description{};
    if (font != nullptr && font->GetLogFont(&description) != 0) {
        std::wcscpy(description.lfFaceName, L"Courier");
        font_.DeleteObject();
        font_.CreateFontIndirect(&description);
        font->Detach();
        font->Attach(font_.GetSafeHandle());
    }
    CDialog::OnSetFont(font);
}

HBRUSH BlockPriceDialog::OnCtlColor(CDC* context, CWnd* control, UINT kind) {
    const HBRUSH brush = CDialog::OnCtlColor(context, control, kind);
    if (control->GetDlgCtrlID() != IDC_TEMPLATE_STATUS) {
        return brush;
    }
    context->SetTextColor(RGB(255, 0, 0));
    // Without a message the label must not cover the file's name, which it overlaps.
    return control->GetWindowTextLength() > 0 ? brush : static_cast<HBRUSH>(::GetStockObject(NULL_BRUSH));
}

void BlockPriceDialog::enable_moves(bool up, bool down) {
    enable(move_up_, up);
    enable(move_down_, down);
}

void BlockPriceDialog::enable(CButton& button, bool on) {
    if (!on && ::GetFocus() == button.m_hWnd) {
        go_on_in_grid();
    }
    button.EnableWindow(on);
}

bool BlockPriceDialog::edit_is_over() {
    if (!grid_.IsEditing()) {
        return true;
    }
    // A button that took the focus has tried to end the edit already. A click on the title bar takes no focus, so the
    // edit may still be open.
    const HWND focus = ::GetFocus();
    const bool focus_left = ::IsChild(m_hWnd, focus) != 0 && ::IsChild(grid_.m_hWnd, focus) == 0;
    return !focus_left && grid_.FinishEdit();
}

void BlockPriceDialog::OnMoveUp() {
    if (edit_is_over()) {
        grid_.MoveRowUp();
    }
}

void BlockPriceDialog::OnMoveDown() {
    if (edit_is_over()) {
        grid_.MoveRowDown();
    }
}

bool BlockPriceDialog::may_lose_changes(bool check_first) {
    // The title bar may be clicked while the question is there.
    if (asking_) {
        return false;
    }
    const RaisedFlag asking(asking_);
    if (!grid_.modified() || current_file_name().empty() || grid_.GetRowCount() < 1) {
        return true;
    }
    const std::wstring question = L"Save changes to " + current_file_name();
    switch (AfxMessageBox(question.c_str(), MB_YESNOCANCEL)) {
        case IDYES:
            return (!check_first || grid_.CheckBeforeSave() == 1) && grid_.may_save_losses() &&
                   grid_.SaveToFile(current_file_name().c_str()) == 1;
        case IDNO:
            return true;
        default:
            return false;
    }
}

void BlockPriceDialog::attach_grid() {
    if (!grid_attached_) {
        grid_.AttachGrid(this, IDC_TEMPLATE_GRID);
        grid_attached_ = true;
        insert_row_.EnableWindow(TRUE);
        delete_row_.EnableWindow(TRUE);
    }
}

void BlockPriceDialog::go_on_in_grid() {
    if (grid_attached_) {
        // The focus moves as Tab moves it, which makes the dialog's own default button the default again.
        GotoDlgCtrl(&grid_);
    }
}

void BlockPriceDialog::show_current_file() {
    current_file_.SetWindowText(current_file_name().c_str());
}

void BlockPriceDialog::mark_saved() {
    grid_.set_modified(false);
    enable_save(false);
}

void BlockPriceDialog::OnNew() {
    if (!edit_is_over() || !may_lose_changes(false)) {
        return;
    }
    const auto chosen = ask_for_file(L"New", L"", L"prc", FileQuestion::new_file);
    if (!chosen) {
        return;
    }
    current_file_name() = *chosen;
    show_current_file();
    if (grid_.SaveToFile(chosen->c_str()) == 0) {
        return;
    }
    attach_grid();
    template_active_ = true;
    grid_.ClearAll();
    grid_.AddNewRow();
    mark_saved();
    save_as_.EnableWindow(TRUE);
    enable_moves(false, false);
    go_on_in_grid();
}

void BlockPriceDialog::OnOpen() {
    if (!edit_is_over() || !may_lose_changes(false)) {
        return;
    }
    const auto chosen = ask_for_file(L"Open", current_file_name(), L"prc", FileQuestion::existing_file);
    if (!chosen) {
        return;
    }
    attach_grid();
    if (grid_.LoadFromFile(chosen->c_str()) == 0) {
        return;
    }
    template_active_ = true;
    current_file_name() = *chosen;
    show_current_file();
    save_as_.EnableWindow(TRUE);
    mark_saved();
    grid_.GotoCell(0, 0);
    if (grid_.GetRowCount() < 2) {
        enable_moves(false, false);
    }
    go_on_in_grid();
}

void BlockPriceDialog::OnSave() {
    const bool worth_saving = grid_.modified() && !current_file_name().empty() && grid_.GetRowCount() > 0;
    if (!edit_is_over() || !worth_saving || grid_.CheckBeforeSave() == 0 || !grid_.may_save_losses()) {
        return;
    }
    grid_.tell_misread_prices();
    // The writer has told the user when it could not write.
    grid_.SaveToFile(current_file_name().c_str());
    show_current_file();
    mark_saved();
}

void BlockPriceDialog::OnSaveAs() {
    if (!template_active_ || !edit_is_over() || grid_.CheckBeforeSave() == 0 || !grid_.may_save_losses()) {
        return;
    }
    const auto chosen = ask_for_file(L"Save as", current_file_name(), L"prc", FileQuestion::new_file);
    if (!chosen) {
        return;
    }
    current_file_name() = *chosen;
    grid_.tell_misread_prices();
    if (grid_.SaveToFile(chosen->c_str()) == 1) {
        show_current_file();
        mark_saved();
    }
    go_on_in_grid();
}

void BlockPriceDialog::OnInsertRow() {
    if (template_active_ && edit_is_over()) {
        grid_.InsertRowAfter(grid_.GetCurrentRow());
        go_on_in_grid();
    }
}

void BlockPriceDialog::OnDeleteRow() {
    const long row = grid_.GetCurrentRow();
    if (!template_active_ || row < 0 || !edit_is_over()) {
        return;
    }
    grid_.clear_status();
    grid_.DeleteRow(row);
    if (grid_.GetCurrentRow() >= 0) {
        grid_.GotoCell(0, grid_.GetCurrentRow());
    }
    if (grid_.GetRowCount() < 2) {
        enable_moves(false, false);
    }
    go_on_in_grid();
}

void BlockPriceDialog::Close() {
    if (!template_active_) {
        EndDialog(IDCANCEL);
        return;
    }
    if (!edit_is_over() || !may_lose_changes(true)) {
        return;
    }
    grid_.StoreColumnWidths();
    write_settings(template_settings_name, grid_.stored_widths(), current_file_name());
    EndDialog(IDCANCEL);
}
