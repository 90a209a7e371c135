#include "grid/number_sum.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace corvanes {

namespace {

constexpr std::size_t longest_number = 40;
constexpr std::wstring_view digits = L"0123456789";

}  // namespace

std::optional<double> plain_number(std::wstring_view text) {
    const std::wstring_view unsigned_text = text.substr(text.starts_with(L'-') || text.starts_with(L'+') ? 1 : 0);
    const bool only_digits = unsigned_text.find_first_not_of(L"0123456789.") == text.npos;
    const bool one_point = std::count(unsigned_text.begin(), unsigned_text.end(), L'.') <= 1;
    if (!only_digits || !one_point || unsigned_text.find_first_of(digits) == text.npos ||
        unsigned_text.size() > longest_number) {
        return std::nullopt;
    }
    std::array<char, longest_number> bytes{};
    std::transform(unsigned_text.begin(), unsigned_text.end(), bytes.begin(),
                   [](wchar_t c) { return static_cast<char>(c); });
    double value = 0;
    std::from_chars(bytes.data(), bytes.data() + unsigned_text.size(), value);
    return text.starts_with(L'-') ? -value : value;
}

void NumberSum::add(std::wstring_view text) {
    if (const auto number = plain_number(text)) {
        ++count_;
        sum_ += *number;
        const std::size_t point = text.find(L'.');
        decimals_ = std::max(decimals_, point == text.npos ? 0 : text.size() - point - 1);
    }
}

std::wstring NumberSum::words() const {
    if (count_ < 2) {
        return {};
    }
    std::array<char, 400> bytes{};
    const auto [end, error] = std::to_chars(bytes.data(), bytes.data() + bytes.size(), sum_, std::chars_format::fixed,
                                            static_cast<int>(std::min(decimals_, longest_number)));
    return L"Count: " + std::to_wstring(count_) + L"   Sum: " + std::wstring(bytes.data(), end);
}

}  // namespace corvanes
