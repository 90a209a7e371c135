#include "table/table_name.h"

#include <algorithm>

#include "base/case_folding.h"
#include "common/price_text.h"

namespace corvanes {
namespace {

constexpr std::wstring_view prefix = L"kvo";
constexpr size_t digits = 4;
constexpr int last_number = 9999;

/// The decimal number at the front, as the host's users write it: blanks and a sign may precede it.
int leading_number(std::wstring_view text) {
    const double number = number_from_text(text.substr(0, text.find_first_of(L".eE")));
    return static_cast<int>(number);
}

}  // namespace

std::optional<int> table_number(std::wstring_view block_name) {
    if (block_name.size() != prefix.size() + digits) {
        return std::nullopt;
    }
    if (base::compare_ignoring_case(block_name.substr(0, prefix.size()), prefix) != 0) {
        return std::nullopt;
    }
    return leading_number(block_name.substr(prefix.size()));
}

std::optional<std::wstring> next_table_name(const std::vector<std::wstring>& block_names) {
    int largest = 0;
    for (const std::wstring& name : block_names) {
        largest = std::max(largest, table_number(name).value_or(0));
    }
    if (largest >= last_number) {
        return std::nullopt;
    }
    const std::wstring number = std::to_wstring(largest + 1);
    return L"KVO" + std::wstring(digits - number.size(), L'0') + number;
}

}  // namespace corvanes
