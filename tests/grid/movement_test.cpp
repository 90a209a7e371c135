#include <gtest/gtest.h>

#include <vector>

#include "grid/cell_movement.h"
#include "grid/selection.h"

using namespace corvanes;

namespace {

TEST(CellMovement, RowsStopAtTheEnds) {
    const auto reached = [](int current) {
        std::vector<int> rows;
        for (int direction = row_up; direction <= last_row; ++direction) {
            rows.push_back(row_after(direction, current, 10, 4).value_or(-1));
        }
        return rows;
    };
    EXPECT_EQ(reached(5), (std::vector<int>{4, 6, 1, 9, 0, 9}));
    EXPECT_EQ(reached(0), (std::vector<int>{0, 1, 0, 4, 0, 9}));
    EXPECT_EQ(reached(9), (std::vector<int>{8, 9, 5, 9, 0, 9}));
    EXPECT_EQ(row_after(row_down, 0x7FFFFFFE, 0x7FFFFFFF, 0x7FFFFFFF), 0x7FFFFFFE);
    EXPECT_FALSE(row_after(6, 5, 10, 4));
    EXPECT_FALSE(row_after(-1, 5, 10, 4));
    EXPECT_FALSE(row_after(row_down, -1, 0, 4));
}

TEST(CellMovement, ColumnsPassOverHiddenOnes) {
    const auto shown = [](int column) { return column != 1 && column != 4; };
    const auto reached = [&shown](int steps, int current) { return column_after(steps, current, 5, shown); };
    EXPECT_EQ(
        (std::vector<int>{reached(1, 0), reached(-1, 2), reached(1, 3), reached(-1, 0), reached(-5, 3), reached(5, 0)}),
        (std::vector<int>{2, 0, 3, 0, 0, 3}));
}

TEST(Selection, StretchesAddsAndClips) {
    Selection selection;
    selection.stretch_to(2, 3);
    EXPECT_EQ(selection.ranges(), (std::vector<CellRange>{{0, 0, 2, 3}}));
    selection.clear();
    selection.set_anchor(2, 2);
    EXPECT_TRUE(selection.empty());
    selection.stretch_to(4, 5);
    selection.stretch_to(1, 0);
    EXPECT_EQ(selection.ranges(), (std::vector<CellRange>{{1, 0, 2, 2}}));
    selection.add(1, 1);
    selection.add(6, 6);
    selection.stretch_to(7, 9);
    EXPECT_EQ(selection.ranges(), (std::vector<CellRange>{{1, 0, 2, 2}, {6, 6, 7, 9}}));
    EXPECT_TRUE(selection.contains(7, 8));
    EXPECT_FALSE(selection.contains(3, 2));
    selection.insert_row(1);
    selection.insert_row(0);
    EXPECT_EQ(selection.ranges(), (std::vector<CellRange>{{1, 1, 2, 1}, {1, 3, 2, 4}, {6, 8, 7, 11}}));
    for (const int row : {2, 9, 1, 3}) {
        selection.remove_row(row);
    }
    EXPECT_EQ(selection.ranges(), (std::vector<CellRange>{{1, 1, 2, 2}, {6, 5, 7, 7}}));
    selection.clip(7, 6);
    EXPECT_EQ(selection.ranges(), (std::vector<CellRange>{{1, 1, 2, 2}, {6, 5, 6, 5}}));
}

}  // namespace
