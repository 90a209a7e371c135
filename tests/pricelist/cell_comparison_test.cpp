#include "pricelist/cell_comparison.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "grid/cell.h"
#include "grid/safe_sort.h"

using corvanes::compare_empty_last;

namespace {

CUGCell text_cell(const wchar_t* text) {
    CUGCell cell;
    cell.SetText(text);
    return cell;
}

TEST(CellComparison, OrdersMissingCellsAndTexts) {
    const CUGCell none;
    const CUGCell empty = text_cell(L"");
    const CUGCell a = text_cell(L"a");
    const CUGCell upper_a = text_cell(L"A");
    const CUGCell b = text_cell(L"B");
    const struct {
        const CUGCell *first, *second;
        int ascending, descending;
    } cases[] = {
        {nullptr, nullptr, 0, 0}, {nullptr, &a, -1, 1}, {&a, nullptr, 1, -1},   {&none, &a, -1, 1},
        {&none, &none, 0, 0},     {&a, &upper_a, 0, 0}, {&a, &b, -1, 1},        {&b, &a, 1, -1},
        {&empty, &a, 1, 1},       {&a, &empty, -1, -1}, {&empty, &empty, 0, 0}, {&none, &empty, -1, 0},
    };
    for (const auto& c : cases) {
        const size_t line = static_cast<size_t>(&c - cases);
        EXPECT_EQ(compare_empty_last(c.first, c.second, corvanes::sort_ascending, false), c.ascending) << line;
        EXPECT_EQ(compare_empty_last(c.first, c.second, corvanes::sort_descending, false), c.descending) << line;
    }
}

/// The texts of a column after sorting it.
std::vector<std::wstring> sorted(const std::vector<const wchar_t*>& texts, int flags, bool by_value) {
    std::vector<CUGCell> cells;
    for (const wchar_t* text : texts) {
        cells.push_back(text_cell(text));
    }
    corvanes::safe_sort(
        cells, [=](const CUGCell& a, const CUGCell& b) { return compare_empty_last(&a, &b, flags, by_value); });
    std::vector<std::wstring> result;
    for (const CUGCell& cell : cells) {
        result.emplace_back(cell.GetText());
    }
    return result;
}

TEST(CellComparison, SortsByValueWithEmptyTextsLastInBothDirections) {
    using Texts = std::vector<std::wstring>;
    const std::vector<const wchar_t*> prices = {L"", L"10", L"9.5", L"", L"100"};
    EXPECT_EQ(sorted(prices, corvanes::sort_ascending, true), (Texts{L"9.5", L"10", L"100", L"", L""}));
    EXPECT_EQ(sorted(prices, corvanes::sort_descending, true), (Texts{L"100", L"10", L"9.5", L"", L""}));
    EXPECT_EQ(sorted(prices, corvanes::sort_ascending, false), (Texts{L"10", L"100", L"9.5", L"", L""}));
    CUGCell nine = text_cell(L"9");
    nine.SetDataType(corvanes::data_currency);
    const CUGCell ten = text_cell(L"10");
    EXPECT_EQ(compare_empty_last(&nine, &ten, corvanes::sort_ascending, false), -1)
        << "a numeric cell compares by its value";
}

}  // namespace
