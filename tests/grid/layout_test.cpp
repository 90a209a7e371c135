#include <gtest/gtest.h>

#include <vector>

#include "grid/column_layout.h"
#include "grid/page_layout.h"
#include "grid/row_layout.h"
#include "grid/side_heading_layout.h"

using namespace corvanes;

namespace {

TEST(ColumnLayout, CountsAndWidths) {
    ColumnLayout columns;
    ASSERT_TRUE(columns.set_count(3));
    columns.set_width(1, 200);
    EXPECT_TRUE(columns.set_count(32000));
    EXPECT_EQ(columns.width(1), 200);
    EXPECT_EQ(columns.left(32000), 31999 * ColumnLayout::default_width + 200);
    columns.set_width(0, -1);
    EXPECT_EQ(columns.width(0), -1);
    EXPECT_EQ(columns.left(1), 0);
    for (int column = 0; column < 32000; ++column) {
        columns.set_width(column, 2'000'000'000);
    }
    EXPECT_GT(columns.total_width(), 0) << "far edges overflow";
}

TEST(ColumnLayout, FindsColumnsAndBorders) {
    ColumnLayout columns;
    columns.set_count(4);
    const std::vector<int> widths{10, 0, 20, 30};
    for (int column = 0; column < 4; ++column) {
        columns.set_width(column, widths[column]);
    }
    const auto at = [&columns](const std::vector<int>& points) {
        std::vector<int> found;
        for (const int x : points) {
            found.push_back(columns.at(x));
        }
        return found;
    };
    EXPECT_EQ(at({-1, 0, 9, 10, 29, 30, 59, 60}), (std::vector<int>{-1, 0, 0, 2, 2, 3, 3, -1}));
    const auto border = [&columns](const std::vector<int>& points) {
        std::vector<int> found;
        for (const int x : points) {
            found.push_back(columns.border_at(x, 3));
        }
        return found;
    };
    const auto shown = [&columns](int column) { return columns.nearest_shown(column); };
    EXPECT_EQ((std::vector<int>{columns.first_shown(), columns.last_shown(), shown(0), shown(1), shown(4)}),
              (std::vector<int>{0, 3, 0, 2, 4}));
    // Left of the border at 10 the mouse holds column 0, right of it the hidden column 1.
    EXPECT_EQ(border({0, 6, 7, 9, 10, 13, 14, 27, 33, 56, 57, 63, 64}),
              (std::vector<int>{-1, -1, 0, 0, 1, 1, -1, 2, 2, -1, 3, 3, -1}));
}

// Compares rows of many heights with a walk over all of them; also rows of equal heights, where arithmetic replaces the
// walk.
TEST(RowLayout, AgreesWithWalkingAlongTheRows) {
    for (const bool measured : {false, true}) {
        RowLayout rows;
        rows.set_count(12);
        rows.set_default_height(10);
        for (int row = 0; measured && row < 12; row += 2) {
            rows.set_height(row, row * 3);
        }
        constexpr int window = 45;
        for (int top = 0; top < 12; ++top) {
            int y = 0;
            int whole = 0;
            for (int row = top; row < 12; ++row) {
                EXPECT_EQ(rows.distance(top, row, 1000), y);
                if (rows.height(row) > 0) {
                    EXPECT_EQ(rows.at(y, top), row);
                    EXPECT_EQ(rows.at(y + rows.height(row) - 1, top), row);
                }
                y += rows.height(row);
                whole += whole == row - top && y <= window ? 1 : 0;
            }
            EXPECT_EQ(rows.at(y, top), -1);
            EXPECT_EQ(rows.at(-1, top), -1);
            if (measured || 12 - top > 4) {
                EXPECT_EQ(rows.fitting(top, window), std::max(1, whole));
            }
            for (int row = 0; row < 12; ++row) {
                const int shown = rows.top_showing(row, top, window);
                EXPECT_LE(shown, row);
                EXPECT_LE(rows.distance(shown, row, 1000) + rows.height(row), window);
                EXPECT_TRUE(shown == top || shown == row || row > top) << "scrolled without need";
            }
        }
        const int last = rows.last_top(window);
        EXPECT_LE(rows.distance(last, 12, 1000), window);
        EXPECT_GT(rows.distance(last - 1, 12, 1000), window);
    }
}

TEST(RowLayout, RefusalsUniformModeAndMovingHeights) {
    RowLayout rows;
    EXPECT_TRUE(rows.set_default_height(1024));
    EXPECT_TRUE(rows.set_default_height(10));
    rows.set_count(3);
    EXPECT_FALSE(rows.set_height(3, 10));
    EXPECT_FALSE(rows.set_height(0, -1));
    EXPECT_TRUE(rows.set_height(1, 30));
    rows.insert(1);
    rows.set_count(4);
    EXPECT_EQ((std::vector<int>{rows.height(0), rows.height(1), rows.height(2), rows.height(3)}),
              (std::vector<int>{10, 10, 30, 10}));
    rows.remove(0);
    rows.set_count(3);
    EXPECT_EQ(rows.height(1), 30);
    rows.set_count(64001);
    EXPECT_TRUE(rows.uniform());
    EXPECT_FALSE(rows.set_height(1, 30));
    EXPECT_EQ(rows.height(1), 10);
    rows.set_count(2'000'000'000);
    EXPECT_EQ(rows.last_top(100), 1'999'999'990);
    EXPECT_EQ(rows.distance(0, 1'999'999'999, 5000), 5000);
    rows.set_count(0);
    EXPECT_EQ(rows.last_top(100), 0);
    EXPECT_EQ(rows.at(0, 0), -1);
}

TEST(SideHeadingLayout, ScalesItsColumns) {
    SideHeadingLayout heading;
    EXPECT_FALSE(heading.set_width(1, 10));
    EXPECT_FALSE(heading.set_widths({}));
    EXPECT_FALSE(heading.set_widths({1000, 25}));
    const auto scaled = [&heading](int width) {
        EXPECT_TRUE(heading.set_total_width(width));
        std::vector<int> widths;
        for (int column = 0; column < heading.count(); ++column) {
            widths.push_back(heading.width(column));
        }
        return widths;
    };
    EXPECT_EQ(scaled(1024), std::vector<int>{1024});
    ASSERT_TRUE(heading.set_widths({10, 20, 30}));
    EXPECT_EQ(scaled(90), (std::vector<int>{15, 30, 45}));
    EXPECT_EQ(scaled(31), (std::vector<int>{5, 10, 16}));
    EXPECT_EQ(scaled(0), (std::vector<int>{0, 0, 0}));
    EXPECT_EQ(scaled(60), (std::vector<int>{20, 20, 20}));
    ASSERT_TRUE(heading.set_width(0, 0));
    EXPECT_EQ(heading.total_width(), 40);
}

TEST(PageLayout, SharesTheWidthAndBreaksBetweenRows) {
    EXPECT_EQ(fitted_widths({50, 20, 30}, 203), (std::vector<int>{101, 40, 60}));
    EXPECT_EQ(fitted_widths({500, 20, 90, 300}, 200), (std::vector<int>{60, 20, 60, 60})) << "the narrow one is whole";
    EXPECT_EQ(fitted_widths({9, 9}, 0), (std::vector<int>{1, 1}));
    EXPECT_EQ(fitted_widths({}, 100), std::vector<int>());
    EXPECT_EQ(rows_of_pages({40, 40, 20, 10, 120, 10}, 100), (std::vector<RowSpan>{{0, 2}, {3, 3}, {4, 4}, {5, 5}}));
    EXPECT_EQ(rows_of_pages({}, 100), (std::vector<RowSpan>{{0, -1}})) << "headings alone";
}

}  // namespace
