#include "grid/cell_order.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

using namespace corvanes;

namespace {

struct Sample {
    const wchar_t* text;  // null: none
    int type = data_text;
};

std::optional<CUGCell> cell(const std::optional<Sample>& sample) {
    if (!sample) {
        return std::nullopt;
    }
    CUGCell made;
    if (sample->text != nullptr) {
        made.SetText(sample->text);
    }
    made.SetDataType(sample->type);
    return made;
}

// Compares each pair in both orders, ascending and descending: the result has the sign given for the pair, or the
// opposite sign.
TEST(CellOrder, ComparesByPresenceThenTypeThenValue) {
    const Sample none{nullptr};
    const struct {
        std::optional<Sample> first;
        std::optional<Sample> second;
        int expected;
    } pairs[] = {
        {std::nullopt, std::nullopt, 0},
        {std::nullopt, none, -1},
        {none, none, 0},
        {none, Sample{L""}, -1},
        {none, Sample{L"-5", data_number}, -1},
        {Sample{L"10"}, Sample{L"9"}, -1},
        {Sample{L"B"}, Sample{L"a"}, -1},
        {Sample{L"same"}, Sample{L"same"}, 0},
        {Sample{L"9", data_number}, Sample{L"10", data_number}, -1},
        {Sample{L"0", data_boolean}, Sample{L"1", data_boolean}, -1},
        {Sample{L"9.50", data_currency}, Sample{L"9.5", data_currency}, 0},
        {Sample{L"9", 4}, Sample{L"10", 4}, 1},
    };
    int index = 0;
    for (const auto& pair : pairs) {
        const std::optional<CUGCell> a = cell(pair.first);
        const std::optional<CUGCell> b = cell(pair.second);
        const CUGCell* first = a ? &*a : nullptr;
        const CUGCell* second = b ? &*b : nullptr;
        EXPECT_EQ(compare_cells(first, second, sort_ascending), pair.expected) << index;
        EXPECT_EQ(compare_cells(second, first, sort_ascending), -pair.expected) << index;
        EXPECT_EQ(compare_cells(first, second, sort_descending), -pair.expected) << index;
        ++index;
    }
}

}  // namespace
