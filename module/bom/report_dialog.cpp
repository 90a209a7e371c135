#include "bom/report_dialog.h"

#include <aced.h>

#include <utility>

#include "bom/block_selection.h"
#include "bom/report_file.h"
#include "bom/report_options.h"
#include "common/file_question.h"
#include "common/settings_files.h"
#include "pricelist/price_list_file.h"
#include "resources/resource.h"

using corvanes::report_options;

namespace {

CalcPriceDialog* the_open_dialog = nullptr;

corvanes::SettingsPaths report_settings_paths() {
    corvanes::SettingsPaths paths;
    corvanes::GetSettingsPaths(corvanes::report_settings_name.data(), paths.settings, paths.last_file);
    return paths;
}

}  // namespace

BEGIN_MESSAGE_MAP(CalcPriceDialog, CDialog)
    ON_BN_CLICKED(IDC_REPORT_CLOSE, &CalcPriceDialog::OnClose)
    ON_BN_CLICKED(IDC_REPORT_ATTACH, &CalcPriceDialog::OnAttachNew)
    ON_BN_CLICKED(IDC_REPORT_SAVE, &CalcPriceDialog::OnSaveToFile)
    ON_BN_CLICKED(IDC_REPORT_INSERT, &CalcPriceDialog::OnInsert)
    ON_BN_CLICKED(IDC_REPORT_SHOW_PRICE, &CalcPriceDialog::OnShowPrice)
    ON_WM_CLOSE()
    ON_WM_LBUTTONDOWN()
END_MESSAGE_MAP()

CalcPriceDialog::CalcPriceDialog(CWnd* parent, InsertHandler insert)
    : CDialog(IDD_BOM_REPORT, parent), insert_(std::move(insert)), outer_(std::exchange(the_open_dialog, this)) {}

CalcPriceDialog::~CalcPriceDialog() {
    the_open_dialog = outer_;
}

CalcPriceDialog* CalcPriceDialog::open_dialog() {
    return the_open_dialog;
}

void CalcPriceDialog::DoDataExchange(CDataExchange* exchange) {
    CDialog::DoDataExchange(exchange);
    DDX_Control(exchange, IDC_REPORT_FILE, current_file_);
    DDX_Check(exchange, IDC_REPORT_SHOW_PRICE, show_price_);
}

BOOL CalcPriceDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    grid_.AttachGrid(this, IDC_REPORT_GRID);
    grid_.FillReportGrid(rows_);
    current_file_.SetWindowText(report_options().price_list_path.c_str());
    show_price_ = report_options().show_prices ? 1 : 0;
    UpdateData(FALSE);
    return TRUE;
}

void CalcPriceDialog::LoadReportSettings() {
    const auto paths = report_settings_paths();
    MyCug2::Widths& widths = grid_.stored_widths();
    corvanes::read_column_widths(paths.settings, widths.data(), widths.size());
    if (auto last_file = corvanes::read_last_file(paths.last_file)) {
        report_options().price_list_path = std::move(*last_file);
    }
}

void CalcPriceDialog::SaveReportSettingsAndClose() {
    grid_.StoreColumnWidths();
    const auto paths = report_settings_paths();
    const MyCug2::Widths& widths = grid_.stored_widths();
    corvanes::write_column_widths(paths.settings, widths.data(), widths.size());
    corvanes::write_last_file(paths.last_file, report_options().price_list_path);
    EndDialog(IDCANCEL);
}

void CalcPriceDialog::OnClose() {
    SaveReportSettingsAndClose();
}

void CalcPriceDialog::OnAttachNew() {
    const auto chosen = corvanes::ask_for_file(L"Open", report_options().price_list_path, L"prc",
                                               corvanes::FileQuestion::existing_file);
    if (!chosen || !corvanes::LoadPriceRows(*this, chosen->c_str())) {
        return;
    }
    report_options().price_list_path = *chosen;
    if (corvanes::CountSelectedBlocks(*this)) {
        grid_.FillReportGrid(rows_);
        current_file_.SetWindowText(chosen->c_str());
    }
}

void CalcPriceDialog::OnSaveToFile() {
    corvanes::SaveReportToFile(*this);
}

void CalcPriceDialog::OnInsert() {
    if (insert_) {
        insert_(*this);
    }
}

void CalcPriceDialog::OnShowPrice() {
    UpdateData(TRUE);
    report_options().show_prices = show_price_ != 0;
    grid_.ApplyShowPrice();
}

void CalcPriceDialog::OnLButtonDown(UINT flags, CPoint point) {
    SetFocus();
    CDialog::OnLButtonDown(flags, point);
}
