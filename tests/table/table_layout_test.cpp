#include "table/table_layout.h"

#include <gtest/gtest.h>

#include "table/merge_table.h"

namespace {

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
