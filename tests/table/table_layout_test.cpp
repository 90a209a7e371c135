#include "table/table_layout.h"

#include <gtest/gtest.h>

#include <sstream>

#include "table/merge_table.h"

using corvanes::ReportCells;

namespace {

const std::vector<ReportCells> rows = {
    {L"door", L"12.50", L"2", L"\u05d3\u05dc\u05ea", L"25.00"},
    {L"window 120x60", L"1.00", L"10", L"Caf\u00e9", L"10.00"},
    {L"Summary:", L"", L"", L"", L"35.00"},
};

/// A layout in words: a line an item, in the order in which they are made.
std::string printed(const corvanes::TableLayout& layout) {
    std::ostringstream out;
    for (const auto& item : layout.order) {
        if (item.is_rule) {
            const auto& rule = layout.rules[item.index];
            out << "rule " << rule.start.x << ',' << rule.start.y << ' ' << rule.end.x << ',' << rule.end.y << '\n';
            continue;
        }
        const auto& text = layout.texts[item.index];
        out << std::string(text.tag.begin(), text.tag.end()) << ' ' << "LCR"[static_cast<int>(text.alignment)] << ' '
            << text.position.x << ',' << text.position.y;
        if (text.alignment != corvanes::CellAlignment::left) {
            out << ' ' << text.alignment_point.x << ',' << text.alignment_point.y;
        }
        out << '\n';
    }
    out << "origin " << layout.origin.x << ',' << layout.origin.y << " size " << layout.width << 'x' << layout.height;
    return out.str();
}

TEST(TableLayout, LeavesOutMoneyAndSummaryWithoutPrices) {
    EXPECT_EQ(corvanes::column_widths(rows, false), (corvanes::ColumnWidths{14, 0, 9, 12, 0}));
    EXPECT_EQ(printed(corvanes::lay_out_table(rows, false, 1.0)),
              "rule 0,2 42,2\n"
              "BLOCKNAME C 1,0 8.4,0\nQUANTITY C 17.8,0 22.2,0\nDESCRIPTION C 28.6,0 34.8,0\n"
              "rule 0,-1 42,-1\n"
              "BLOCKNAME1 L 1,-3\nQUANTITY1 R 26.6,-3 26.6,-3\nDESCRIPTION1 R 41,-3 41,-3\n"
              "rule 0,-4 42,-4\n"
              "BLOCKNAME2 L 1,-6\nQUANTITY2 R 26.6,-6 26.6,-6\nDESCRIPTION2 L 28.6,-6\n"
              "rule 0,-7 42,-7\n"
              "rule 0,2 0,-7\nrule 16.8,2 16.8,-7\nrule 16.8,2 16.8,-7\nrule 27.6,2 27.6,-7\nrule 42,2 42,-7\n"
              "rule 42,2 42,-7\n"
              "origin 0,2 size 42x9");
}

TEST(TableLayout, MarginsDoNotFollowTheTextHeight) {
    const auto layout = corvanes::lay_out_table({}, true, 2.0);
    EXPECT_EQ(layout.texts.front().position.x, 1.0);
    EXPECT_DOUBLE_EQ(layout.width, (11 + 11 + 9 + 12 + 6) * 2.4);
    EXPECT_EQ(layout.height, 6.0);
}

TEST(MergeTableColumns, CentreATextByNineTenthsOfItsCharacters) {
    const int widths[] = {14, 11};
    const MergeTable table(1.0, 1.2, widths, 2, 0);
    EXPECT_DOUBLE_EQ(table.centredTextX(10, 1), 16.8 + 1.2 * (11 - 9.0) / 2);
    EXPECT_DOUBLE_EQ(table.total_width(), 30.0);
}

}  // namespace
