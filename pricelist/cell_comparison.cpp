#include "pricelist/cell_comparison.h"

#include <string_view>
#include <utility>

#include "base/case_folding.h"
#include "pricelist/price_text.h"

namespace corvanes {
namespace {

int compare_numbers(double first, double second) {
    return first < second ? -1 : first > second ? 1 : 0;
}

bool numeric(const CUGCell& cell) {
    const int type = cell.GetDataType();
    return type == data_number || type == data_boolean || type == data_currency;
}

}  // namespace

int compare_empty_last(const CUGCell* first, const CUGCell* second, int flags, bool by_value) {
    const bool descending = (flags & sort_descending) != 0;
    if (descending) {
        std::swap(first, second);
    }
    if (first == nullptr || second == nullptr) {
        return first != nullptr ? 1 : second != nullptr ? -1 : 0;
    }
    const wchar_t* first_chars = first->GetText();
    const wchar_t* second_chars = second->GetText();
    if (first_chars == nullptr) {
        return second_chars != nullptr ? -1 : 0;
    }
    const std::wstring_view first_text(first_chars);
    const std::wstring_view second_text(second_chars == nullptr ? L"" : second_chars);
    const int by_text = base::compare_ignoring_case(first_text, second_text);
    if (by_text == 0) {
        return 0;
    }
    const int empty_last = descending ? -1 : 1;
    if (first_text.empty()) {
        return empty_last;
    }
    if (second_text.empty()) {
        return -empty_last;
    }
    if (by_value) {
        return compare_numbers(number_from_text(first_text), number_from_text(second_text));
    }
    return numeric(*first) ? compare_numbers(first->GetNumber(), second->GetNumber()) : by_text;
}

}  // namespace corvanes
