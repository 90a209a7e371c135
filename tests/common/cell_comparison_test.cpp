#include "common/cell_comparison.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/case_folding.h"
#include "common/price_text.h"
#include "grid/cell.h"
#include "grid/safe_sort.h"

using corvanes::compare_empty_last;
using corvanes::EmptyLastOrder;

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
        {&a, &none, -1, -1},
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

/// The order as it is told, cell by cell, without keys.
int told_order(const CUGCell* a, const CUGCell* b, bool descending, bool by_value) {
    if (descending) {
        std::swap(a, b);
    }
    if (a == nullptr || b == nullptr) {
        return a != nullptr ? 1 : b != nullptr ? -1 : 0;
    }
    if (a->GetText() == nullptr) {
        return b->GetText() != nullptr ? -1 : 0;
    }
    const std::wstring left = a->GetText();
    const std::wstring right = b->GetText() != nullptr ? b->GetText() : L"";
    const int texts = base::compare_ignoring_case(left, right);
    if (texts == 0 || left.empty() || right.empty()) {
        return texts == 0 ? 0 : left.empty() != descending ? 1 : -1;
    }
    const bool values = by_value || a->GetDataType() != corvanes::data_text;
    const double x = by_value ? corvanes::number_from_text(left) : a->GetNumber();
    const double y = by_value ? corvanes::number_from_text(right) : b->GetNumber();
    return values ? (x > y) - (x < y) : texts;
}

TEST(CellComparison, AnswersByKeysAsByCells) {
    std::vector<CUGCell> cells(1);
    for (const wchar_t* text : {L"", L"9", L"10", L" 1e1", L"part_10", L"PART_100", L"Part_10\x05D0", L"part_1\x05D0",
                                L"a", L"\x05D0\x05D1", L"\x00C4nderung 1", L"\x00E4NDERUNG 12"}) {
        cells.push_back(text_cell(text));
        cells.push_back(text_cell(text));
        cells.back().SetDataType(corvanes::data_number);
    }
    std::vector<const CUGCell*> all{nullptr};
    for (const CUGCell& cell : cells) {
        all.push_back(&cell);
    }
    for (const bool descending : {false, true}) {
        for (const bool by_value : {false, true}) {
            const EmptyLastOrder order(descending ? corvanes::sort_descending : corvanes::sort_ascending, by_value);
            for (size_t pair = 0; pair < all.size() * all.size(); ++pair) {
                const CUGCell* const a = all[pair / all.size()];
                const CUGCell* const b = all[pair % all.size()];
                EXPECT_EQ(order.compare(order.read(a), order.read(b)), told_order(a, b, descending, by_value))
                    << pair / all.size() << ' ' << pair % all.size() << descending << by_value;
            }
        }
    }
}

}  // namespace
