#include "bom/report_file.h"

#include <afxwin.h>

#include "bom/drawing_name.h"
#include "bom/report_options.h"
#include "bom/report_rows.h"
#include "bom/report_text.h"
#include "common/file_question.h"
#include "common/text_file.h"
#include "pricelist/price_list_file.h"

namespace corvanes {

void SaveReportToFile(MyCug2& grid) {
    const std::wstring proposal = default_report_name(report_options().price_list_path, drawing_name());
    if (const auto path = ask_for_file(L"Save as", proposal, L"txt", FileQuestion::new_file)) {
        WriteReportFile(grid, path->c_str(), L"w");
    }
}

bool WriteReportFile(MyCug2& grid, const wchar_t* path, [[maybe_unused]] const wchar_t* mode) {
    ASSERT(mode[0] == L'w');
    if (!write_text_file(path, report_text(shown_rows(grid), report_options().show_prices))) {
        alert_cannot_open(path);
        return false;
    }
    return true;
}

}  // namespace corvanes
