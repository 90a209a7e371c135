#include "bom/report_options.h"

namespace corvanes {

ReportOptions& report_options() {
    static ReportOptions options;
    return options;
}

}  // namespace corvanes
