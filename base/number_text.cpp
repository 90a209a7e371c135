#include "base/number_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <limits>
#include <string>

namespace base {
namespace {

bool is_digit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

size_t digits_at(std::wstring_view text, size_t from) {
    size_t end = from;
    while (end < text.size() && is_digit(text[end])) {
        ++end;
    }
    return end - from;
}

/// How many characters of an unsigned decimal number stand at the front.
size_t number_length(std::wstring_view text) {
    const size_t whole = digits_at(text, 0);
    size_t end = whole;
    if (end < text.size() && text[end] == L'.') {
        const size_t fraction = digits_at(text, end + 1);
        if (whole + fraction == 0) {
            return 0;
        }
        end += 1 + fraction;
    }
    if (end == 0 || end >= text.size() || (text[end] | 0x20) != L'e') {
        return end;
    }
    size_t exponent = end + 1;
    if (exponent < text.size() && (text[exponent] == L'-' || text[exponent] == L'+')) {
        ++exponent;
    }
    const size_t digits = digits_at(text, exponent);
    return digits == 0 ? end : exponent + digits;
}

/// Whether a number that no double can hold is too small rather than too large: the place of its first non-zero digit
/// tells.
bool is_tiny(std::string_view number) {
    const size_t exponent_at = std::min(number.find_first_of("eE"), number.size());
    const std::string_view digits = number.substr(0, exponent_at);
    const size_t point = std::min(digits.find('.'), digits.size());
    const size_t first = std::min(digits.find_first_of("123456789"), digits.size());
    int64_t exponent = 0;
    if (exponent_at < number.size()) {
        std::string_view text = number.substr(exponent_at + 1);
        const bool minus = text.front() == '-';
        text.remove_prefix(minus || text.front() == '+' ? 1 : 0);
        if (std::from_chars(text.data(), text.data() + text.size(), exponent).ec != std::errc()) {
            return minus;
        }
        exponent = minus ? -exponent : exponent;
    }
    return static_cast<int64_t>(point) - static_cast<int64_t>(first) < -exponent;
}

}  // namespace

bool is_space(wchar_t c) {
    return c == L' ' || (c >= L'\t' && c <= L'\r') || c == 0xA0;
}

void skip_space(std::wstring_view& text) {
    while (!text.empty() && is_space(text.front())) {
        text.remove_prefix(1);
    }
}

bool take_sign(std::wstring_view& text) {
    if (text.empty() || (text.front() != L'-' && text.front() != L'+')) {
        return false;
    }
    const bool minus = text.front() == L'-';
    text.remove_prefix(1);
    return minus;
}

double take_number(std::wstring_view& text) {
    std::wstring_view rest = text;
    skip_space(rest);
    const bool minus = take_sign(rest);
    const size_t length = number_length(rest);
    char small[64] = {};
    std::string large;
    char* digits = small;
    if (length > sizeof small) {
        large.resize(length);
        digits = large.data();
    }
    for (size_t i = 0; i < length; ++i) {
        digits[i] = static_cast<char>(rest[i]);
    }
    double value = 0;
    const auto result = std::from_chars(digits, digits + length, value);
    if (result.ec == std::errc::result_out_of_range) {
        value = is_tiny({digits, length}) ? 0 : std::numeric_limits<double>::infinity();
    }
    if (length == 0) {
        return 0;  // a sign without a number is no number, not -0
    }
    text = rest.substr(length);
    return minus ? -value : value;
}

double number_from_text(std::wstring_view text) {
    return take_number(text);
}

}  // namespace base
