// What the report grid shows, as texts: the source of the report file and of the table in the drawing.
#pragma once

#include <vector>

#include "bom/report_text.h"

class MyCug2;

namespace corvanes {

/// The cells of every row in the grid's present order, those of hidden columns too; the summary row is the last.
std::vector<ReportCells> shown_rows(MyCug2& grid);

}  // namespace corvanes
