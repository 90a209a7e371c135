#include "grid/safe_sort.h"

#include <gtest/gtest.h>

#include <numeric>
#include <random>

using namespace corvanes;

namespace {

TEST(SafeSort, OrdersAndKeepsTheOrderOfEquals) {
    std::mt19937 random(7);
    for (const int count : {0, 1, 2, 7, 8, 9, 16, 17, 63, 64, 65, 1000}) {
        std::vector<std::pair<int, int>> items;
        for (int index = 0; index < count; ++index) {
            items.emplace_back(static_cast<int>(random() % 10), index);
        }
        auto expected = items;
        std::sort(expected.begin(), expected.end());
        safe_sort(items, [](const auto& a, const auto& b) { return a.first - b.first; });
        EXPECT_EQ(items, expected) << count;
    }
}

TEST(SafeSort, SurvivesComparisonsThatContradictThemselves) {
    std::vector<int> all(777);
    std::iota(all.begin(), all.end(), 0);
    std::mt19937 random(8);
    unsigned calls = 0;
    const std::vector<std::function<int(int, int)>> comparisons{
        [](int, int) { return 1; },
        [](int, int) { return -1; },
        [](int, int) { return 0; },
        [&random](int, int) { return static_cast<int>(random() % 3) - 1; },
        [&calls](int, int) { return ++calls % 2 == 0 ? 1 : -1; },
        // Paper, scissors, stone.
        [](int a, int b) { return (a - b + 300) % 3 - 1; },
    };
    for (const auto& comparison : comparisons) {
        std::vector<int> items = all;
        safe_sort(items, comparison);
        std::sort(items.begin(), items.end());
        EXPECT_EQ(items, all);
    }
}

TEST(SafeSort, ComparesSortedRowsOnlyOnceForEachPairOfRuns) {
    std::vector<int> items(1024);
    std::iota(items.begin(), items.end(), 0);
    int comparisons = 0;
    safe_sort(items, [&comparisons](int a, int b) {
        ++comparisons;
        return a - b;
    });
    EXPECT_EQ(comparisons, 1023);
}

}  // namespace
