// The table as geometry: rules and cell texts with their places, before anything of it is in a drawing.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "bom/report_columns.h"

namespace corvanes {

struct TablePoint {
    double x = 0;
    double y = 0;
};

struct TableRule {
    TablePoint start;
    TablePoint end;
};

enum class CellAlignment { left = 0, centre = 1, right = 2 };

/// One cell's text; it becomes an attribute definition.
struct TableText {
    std::wstring tag;
    std::wstring text;
    CellAlignment alignment = CellAlignment::left;
    TablePoint position;         ///< where the text begins; only a first guess for right-aligned texts
    TablePoint alignment_point;  ///< the middle or the right end of the baseline; unused for left-aligned texts
};

/// Drawing units at scale 1, the y axis upwards; the heading's baseline is at y = 0.
struct TableLayout {
    double text_height = 1;
    /// Rules and texts in the order in which they are made: index into the one or the other.
    struct Item {
        bool is_rule = false;
        size_t index = 0;
    };
    std::vector<Item> order;
    std::vector<TableRule> rules;
    std::vector<TableText> texts;
    TablePoint origin;  ///< the upper-left corner, which becomes the insertion point
    double width = 0;
    double height = 0;
};

using ColumnWidths = std::array<int, report_columns>;

/// Widths in characters: one more than the longest text of each column, its heading among them; the columns of money
/// are 0 wide without prices.
ColumnWidths column_widths(const std::vector<ReportCells>& rows, bool show_prices);

/// Lays out the rows of the report (the summary row among them) in rows 3 text heights apart. Descriptions with Hebrew
/// letters are aligned right, whatever the system's code page is.
TableLayout lay_out_table(const std::vector<ReportCells>& rows, bool show_prices, double text_height);

}  // namespace corvanes
