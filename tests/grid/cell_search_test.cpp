#include "grid/cell_search.h"

#include <gtest/gtest.h>

using namespace corvanes;

namespace {

TEST(CellSearch, MatchesAsNamesDoAndReplacesEveryPlace) {
    const auto found = [](const wchar_t* text, const wchar_t* cell, bool match_case = false, bool whole = false) {
        return CellSearch(text, {match_case, whole}).matches(cell);
    };
    EXPECT_TRUE(found(L"DOOR", L"big door") && found(L"oor", L"oodOOR") && found(L"\x416", L"a\x436") &&
                found(L"\x5E9\x5DC", L"\x5D0\x5E9\x5DC") && found(L"Door", L"a Door", true) &&
                found(L"door", L"DOOR", false, true) && found(L"", L"", false, true));
    EXPECT_FALSE(found(L"DOOR", L"door", true) || found(L"door", L"doors", false, true) || found(L"door", L"doo") ||
                 found(L"", L"door") || found(L"", L"door", false, true));
    const auto replaced = [](const wchar_t* text, const wchar_t* cell, const wchar_t* by, SearchOptions options = {}) {
        return CellSearch(text, options).replaced(cell, by);
    };
    EXPECT_EQ(replaced(L"a", L"bAnana", L"aa"), L"baanaanaa");
    EXPECT_EQ(replaced(L"aa", L"aaaaa", L""), L"a");
    EXPECT_EQ(replaced(L"x", L"banana", L"y"), L"banana");
    EXPECT_EQ(replaced(L"BANANA", L"banana", L"fig", {false, true}) + replaced(L"an", L"an an", L"x", {true, true}),
              L"figan an");
}

// The cells where "x" is found in a grid of columns 0, 2 and 5 over 3 rows, from each start; "-" for none.
TEST(CellSearch, WalksRoundTheCells) {
    const auto next = [](std::vector<CellAddress> marked, CellAddress from, bool up, std::vector<int> columns) {
        const auto text = [&marked](CellAddress cell) {
            return std::find(marked.begin(), marked.end(), cell) != marked.end() ? L"ax" : nullptr;
        };
        const auto [end, cell] =
            search_cells(CellSearch(L"X", {}), {std::move(columns), 3, text}, from, up, [] { return true; });
        return end == SearchEnd::found ? std::to_string(cell.column) + std::to_string(cell.row) : std::string("-");
    };
    const std::vector<int> all{0, 2, 5};
    const std::vector<CellAddress> three{{0, 0}, {5, 1}, {2, 2}, {1, 1}};
    EXPECT_EQ(next(three, {0, 0}, false, all) + next(three, {5, 1}, false, all) + next(three, {2, 2}, false, all),
              "512200");
    EXPECT_EQ(next(three, {0, 0}, true, all) + next(three, {5, 1}, true, all) + next(three, {2, 2}, true, all),
              "220051");
    EXPECT_EQ(next(three, {-1, -1}, false, all) + next(three, {-1, -1}, true, all), "0022") << "nothing is current";
    EXPECT_EQ(next(three, {6, 1}, true, all) + next(three, {3, 1}, false, all) + next(three, {1, 2}, false, all),
              "515122");
    EXPECT_EQ(next({{2, 1}}, {2, 1}, false, all) + next({{2, 1}}, {2, 1}, true, all), "2121") << "itself comes last";
    EXPECT_EQ(next(three, {0, 0}, false, {5}) + next({}, {0, 0}, true, all) + next(three, {0, 0}, false, {}), "51--");

    int asked = 0;
    const SearchSpace endless{{0}, 0x7FFFFFFF, [](CellAddress) { return L"abc"; }};
    EXPECT_EQ(search_cells(CellSearch(L"x", {}), endless, {0, 0}, false, [&asked] { return ++asked < 5; }).end,
              SearchEnd::given_up);
}

}  // namespace
