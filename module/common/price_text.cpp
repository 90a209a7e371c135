#include "common/price_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

namespace corvanes {

using base::is_space;
using base::skip_space;
using base::take_sign;

namespace {

int digit_value(wchar_t c) {
    if (c >= L'0' && c <= L'9') {
        return c - L'0';
    }
    const wchar_t lower = c | 0x20;
    return lower >= L'a' && lower <= L'f' ? lower - L'a' + 10 : 99;
}

}  // namespace

std::optional<double> partly_read_number(std::wstring_view text) {
    const double value = take_number(text);
    const bool rest = !std::all_of(text.begin(), text.end(), is_space);
    return rest ? std::optional(value) : std::nullopt;
}

std::wstring amount_text(double amount) {
    // The largest finite number has 309 digits before the point.
    char digits[320];
    const auto end = std::to_chars(digits, digits + sizeof digits, amount, std::chars_format::fixed, 2).ptr;
    return {digits, end};
}

bool take_integer(std::wstring_view& text, int& value) {
    skip_space(text);
    std::wstring_view rest = text;
    const bool minus = take_sign(rest);
    int base = 10;
    if (rest.size() > 2 && rest[0] == L'0' && (rest[1] | 0x20) == L'x' && digit_value(rest[2]) < 16) {
        base = 16;
        rest.remove_prefix(2);
    } else if (!rest.empty() && rest[0] == L'0') {
        base = 8;
    }
    if (rest.empty() || digit_value(rest[0]) >= base) {
        return false;
    }
    std::int64_t sum = 0;
    constexpr std::int64_t limit = std::int64_t{std::numeric_limits<int>::max()} + 1;
    while (!rest.empty() && digit_value(rest[0]) < base) {
        sum = std::min(limit, sum * base + digit_value(rest[0]));
        rest.remove_prefix(1);
    }
    value = static_cast<int>(minus ? -sum : std::min(sum, limit - 1));
    text = rest;
    return true;
}

std::wstring_view take_word(std::wstring_view& text) {
    skip_space(text);
    const auto end = std::find_if(text.begin(), text.end(), is_space);
    const std::wstring_view word = text.substr(0, static_cast<size_t>(end - text.begin()));
    text.remove_prefix(word.size());
    return word;
}

}  // namespace corvanes
