// The layout of the table: its rules and its cell texts with their places, computed without a drawing.
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

/// A table laid out in drawing units at scale 1, with the y axis upwards and the heading's baseline at y = 0.
struct TableLayout {
    double text_height = 1;
    /// The order in which rules and texts are made; each entry is an index into the one or the other list.
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

/// The widths of the columns in characters: one more than the column's longest text, the heading included. Without
/// prices the columns of money are 0 wide.
ColumnWidths column_widths(const std::vector<ReportCells>& rows, bool show_prices);

/// Lays out the rows of the report, the summary row included, 3 text heights apart. Descriptions with Hebrew letters
/// are aligned right, whatever the system's code page is.
TableLayout lay_out_table(const std::vector<ReportCells>& rows, bool show_prices, double text_height);

}  // namespace corvanes
