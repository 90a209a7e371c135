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

TEST(TableLayout, RulesEveryRowAndColumn) {
    // Widths 14, 11, 9, 12 and 6 characters of 1.2 units: columns begin at 0, 16.8, 30, 40.8, 55.2 and end at 62.4.
    EXPECT_EQ(corvanes::column_widths(rows, true), (corvanes::ColumnWidths{14, 11, 9, 12, 6}));
    EXPECT_EQ(printed(corvanes::lay_out_table(rows, true, 1.0)),
              "rule 0,2 62.4,2\n"
              "BLOCKNAME C 1,0 8.4,0\nPRICE C 17.8,0 23.4,0\nQUANTITY C 31,0 35.4,0\nDESCRIPTION C 41.8,0 48,0\n"
              "TOTAL C 56.2,0 58.8,0\n"
              "rule 0,-1 62.4,-1\n"
              "BLOCKNAME1 L 1,-3\nPRICE1 R 29,-3 29,-3\nQUANTITY1 R 39.8,-3 39.8,-3\n"
              "DESCRIPTION1 R 54.2,-3 54.2,-3\nTOTAL1 R 61.4,-3 61.4,-3\n"
              "rule 0,-4 62.4,-4\n"
              "BLOCKNAME2 L 1,-6\nPRICE2 R 29,-6 29,-6\nQUANTITY2 R 39.8,-6 39.8,-6\nDESCRIPTION2 L 41.8,-6\n"
              "TOTAL2 R 61.4,-6 61.4,-6\n"
              "rule 0,-7 62.4,-7\n"
              "BLOCKNAME3 L 1,-9\nPRICE3 R 29,-9 29,-9\nQUANTITY3 R 39.8,-9 39.8,-9\nDESCRIPTION3 L 41.8,-9\n"
              "TOTAL3 R 61.4,-9 61.4,-9\n"
              "rule 0,-10 62.4,-10\n"
              "rule 0,2 0,-10\nrule 16.8,2 16.8,-10\nrule 30,2 30,-10\nrule 40.8,2 40.8,-10\nrule 55.2,2 55.2,-10\n"
              "rule 62.4,2 62.4,-10\n"
              "origin 0,2 size 62.4x12");
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
