#include "shell/commands.h"

#include <afxwin.h>
#include <aced.h>

#include <utility>

#include "bom/report_dialog.h"
#include "bom/report_options.h"
#include "bom/report_wishes.h"
#include "common/file_question.h"
#include "pricelist/template_dialog.h"
#include "common/resource_scope.h"
#include "table/table_builder.h"
#include "table/table_placement.h"

namespace corvanes {
namespace {

/// Loads the price list that the user chooses, or goes on without one. False when it cannot be opened.
bool attach_price_list(CalcPriceDialog& dialog) {
    std::wstring& remembered = report_options().price_list_path;
    const auto chosen = ask_for_file(L"Open", remembered, L"prc", FileQuestion::existing_file);
    if (!chosen) {
        remembered.clear();
        return true;
    }
    if (!dialog.LoadPriceRows(chosen->c_str())) {
        return false;
    }
    remembered = *chosen;
    dialog.grid().set_price_list_attached(true);
    return true;
}

}  // namespace

void template_command() {
    const ResourceScope resources;
    BlockPriceDialog(CWnd::FromHandle(adsw_acadMainWnd())).DoModal();
}

void report_command() {
    const ResourceScope resources;
    const ReportWishes wishes = report_wishes();
    CalcPriceDialog dialog(CWnd::FromHandle(adsw_acadMainWnd()), wishes, insert_table_requested);
    dialog.LoadReportSettings();
    if (!attach_price_list(dialog) || !dialog.CountSelectedBlocks()) {
        return;
    }
    BillFile bill_file(wishes);
    print_notes(wishes, dialog.count());
    if (dialog.DoModal() == IDOK) {
        const CalcPriceDialog::TableBlock& table = dialog.table();
        place_table(table.name, table.width, table.height);
    }
    bill_file.write(std::move(dialog.count()), dialog.grid());
}

}  // namespace corvanes
