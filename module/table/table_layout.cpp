#include "table/table_layout.h"

#include <algorithm>

#include "bidi/reordering.h"
#include "bom/report_text.h"
#include "table/merge_table.h"

namespace corvanes {
namespace {

constexpr double width_factor = 1.0;
constexpr double character_spacing = 1.2;
/// The distance of a text from its column's edges, in drawing units whatever the text height.
constexpr double cell_margin = 1.0;

class TableComposer {
  public:
    TableComposer(const MergeTable& table, bool show_prices) : table_(table), show_prices_(show_prices) {
        layout_.text_height = table.text_height();
    }

    void add_rule(TablePoint start, TablePoint end) {
        layout_.order.push_back({true, layout_.rules.size()});
        layout_.rules.push_back({start, end});
    }

    void add_horizontal_rule(double y) { add_rule({0, y}, {table_.total_width(), y}); }

    void add_text(std::wstring tag, const std::wstring& text, int column, CellAlignment alignment,
                  TablePoint position) {
        const double left = table_.columnLeft(column) + cell_margin;
        const double right = table_.columnLeft(column + 1) - cell_margin;
        TableText item{std::move(tag), text, alignment, position, {}};
        switch (alignment) {
            case CellAlignment::left:
                item.position.x = left;
                break;
            case CellAlignment::centre:
                item.position.x = left;
                item.alignment_point = {(left + right) / 2, position.y};
                break;
            case CellAlignment::right:
                item.position.x = right;
                item.alignment_point = item.position;
                break;
        }
        layout_.order.push_back({false, layout_.texts.size()});
        layout_.texts.push_back(std::move(item));
    }

    bool shown(int column) const { return show_prices_ || !traits_of(column).money; }

    TableLayout finish(double bottom) {
        const double top = 2 * table_.text_height();
        for (int column = 0; column <= table_.column_count(); ++column) {
            const double x = table_.columnLeft(column);
            add_rule({x, top}, {x, bottom});
        }
        layout_.origin = {0, top};
        layout_.width = table_.columnLeft(table_.column_count());
        layout_.height = top - bottom;
        return std::move(layout_);
    }

  private:
    const MergeTable& table_;
    bool show_prices_;
    TableLayout layout_;
};

CellAlignment alignment_of(int column, bool right_to_left) {
    if (column == name_column || (column == description_column && !right_to_left)) {
        return CellAlignment::left;
    }
    return CellAlignment::right;
}

}  // namespace

ColumnWidths column_widths(const std::vector<ReportCells>& rows, bool show_prices) {
    ColumnWidths widths{};
    for (size_t column = 0; column < widths.size(); ++column) {
        size_t longest = std::wstring_view(report_column_traits[column].heading).size();
        for (const ReportCells& row : rows) {
            longest = std::max(longest, row[column].size());
        }
        const bool hidden = !show_prices && report_column_traits[column].money;
        widths[column] = hidden ? 0 : static_cast<int>(longest + 1);
    }
    return widths;
}

TableLayout lay_out_table(const std::vector<ReportCells>& rows, bool show_prices, double text_height) {
    const ColumnWidths widths = column_widths(rows, show_prices);
    const double h = text_height;
    const MergeTable table(h, h * width_factor * character_spacing, widths.data(), report_columns,
                           static_cast<int>(rows.size()));
    TableComposer composer(table, show_prices);

    composer.add_horizontal_rule(2 * h);
    for (int column = 0; column < report_columns; ++column) {
        if (composer.shown(column)) {
            const std::wstring title = traits_of(column).heading;
            composer.add_text(traits_of(column).tag, title, column, CellAlignment::centre,
                              {table.centredTextX(title.size(), column), 0});
        }
    }
    double y = -h;
    composer.add_horizontal_rule(y);
    y -= 2 * h;

    for (size_t row = 0; row < rows.size(); ++row) {
        const ReportCells& cells = rows[row];
        if (!show_prices && cells[name_column] == summary_name) {
            continue;
        }
        const bool right_to_left = contains_right_to_left(cells[description_column]);
        for (int column = 0; column < report_columns; ++column) {
            if (composer.shown(column)) {
                composer.add_text(traits_of(column).tag + std::to_wstring(row + 1), cells[static_cast<size_t>(column)],
                                  column, alignment_of(column, right_to_left), {0, y});
            }
        }
        y -= h;
        composer.add_horizontal_rule(y);
        y -= 2 * h;
    }
    return composer.finish(y + 2 * h);
}

}  // namespace corvanes
