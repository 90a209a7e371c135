#include "common/cell_comparison.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/case_folding.h"
#include "common/price_text.h"
#include "grid/cell.h"

namespace {

/// A plain reference: the order of two cells without keys.
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
        for (const int type : {corvanes::data_text, corvanes::data_number, corvanes::data_currency}) {
            cells.emplace_back().SetText(text);
            cells.back().SetDataType(type);
        }
    }
    std::vector<const CUGCell*> all{nullptr};
    for (const CUGCell& cell : cells) {
        all.push_back(&cell);
    }
    for (const bool descending : {false, true}) {
        for (const bool by_value : {false, true}) {
            const int flags = descending ? corvanes::sort_descending : corvanes::sort_ascending;
            for (size_t pair = 0; pair < all.size() * all.size(); ++pair) {
                const CUGCell* const a = all[pair / all.size()];
                const CUGCell* const b = all[pair % all.size()];
                EXPECT_EQ(corvanes::compare_empty_last(a, b, flags, by_value), told_order(a, b, descending, by_value))
                    << pair / all.size() << ' ' << pair % all.size() << descending << by_value;
            }
        }
    }
}

}  // namespace
