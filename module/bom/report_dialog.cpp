#include "bom/report_dialog.h"

#include <aced.h>

#include <utility>

#include "bom/report_file.h"
#include "bom/report_options.h"
#include "common/file_question.h"
#include "common/settings_files.h"
#include "pricelist/price_list_file.h"
#include "resources/resource.h"

using namespace corvanes;

namespace {

CalcPriceDialog* the_open_dialog = nullptr;

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

CalcPriceDialog::CalcPriceDialog(CWnd* parent, const ReportWishes& wishes, InsertHandler insert)
    : CDialog(IDD_BOM_REPORT, parent),
      insert_(std::move(insert)),
      outer_(std::exchange(the_open_dialog, this)),
      wishes_(wishes) {}

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

BOOL CalcPriceDialog::PreTranslateMessage(MSG* message) {
    return grid_.TakesKey(*message) || CDialog::PreTranslateMessage(message) ? TRUE : FALSE;
}

BOOL CalcPriceDialog::OnInitDialog() {
    CDialog::OnInitDialog();
    grid_.AttachGrid(this, IDC_REPORT_GRID);
    grid_.FillReportGrid(count_.rows);
    current_file_.SetWindowText(report_options().price_list_path.c_str());
    show_price_ = report_options().show_prices ? 1 : 0;
    UpdateData(FALSE);
    return TRUE;
}

void CalcPriceDialog::LoadReportSettings() {
    read_settings(report_settings_name, grid_.stored_widths(), report_options().price_list_path);
}

void CalcPriceDialog::SaveReportSettingsAndClose() {
    grid_.ClearHighlight();
    grid_.StoreColumnWidths();
    write_settings(report_settings_name, grid_.stored_widths(), report_options().price_list_path);
    EndDialog(IDCANCEL);
}

bool CalcPriceDialog::LoadPriceRows(const wchar_t* path) {
    auto text = read_price_list(path);
    if (!text) {
        return false;
    }
    grid_.DeleteAllRows();
    count_.rows.RemoveAll();
    price_list_ = std::move(*text);
    return true;
}

bool CalcPriceDialog::CountSelectedBlocks() {
    const std::wstring price_list = std::exchange(price_list_, {});
    const CountOrder order = {.price_list = price_list,
                              .price_list_attached = grid_.price_list_attached(),
                              .dynamic_names = wishes_.dynamic_names,
                              .with_notes = wishes_.any_notes()};
    return corvanes::CountSelectedBlocks(count_, order);
}

void CalcPriceDialog::OnAttachNew() {
    const auto chosen = ask_for_file(L"Open", report_options().price_list_path, L"prc", FileQuestion::existing_file);
    if (!chosen || !LoadPriceRows(chosen->c_str())) {
        return;
    }
    report_options().price_list_path = *chosen;
    if (CountSelectedBlocks()) {
        grid_.FillReportGrid(count_.rows);
        current_file_.SetWindowText(chosen->c_str());
    }
}

void CalcPriceDialog::OnSaveToFile() {
    SaveReportToFile(grid_);
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
