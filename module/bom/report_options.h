// The options that all BOM Reports share for as long as the module is loaded.
#pragma once

#include <string>

namespace corvanes {

struct ReportOptions {
    bool show_prices = true;       ///< the "Show Price" box; never saved
    std::wstring price_list_path;  ///< the current price list; empty until one is chosen
};

ReportOptions& report_options();

}  // namespace corvanes
