#include "grid/value_range.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "base/number_text.h"
#include "grid/label_fields.h"

namespace corvanes {

namespace {

constexpr int most_decimals = 15;

// Half the distance between the limits, because the whole one may be too large for a number.
double half_span(const ValueRange& range) {
    return range.most / 2 - range.least / 2;
}

double held(const ValueRange& range, double value) {
    return std::clamp(value, range.least, range.most);
}

}  // namespace

ValueRange range_from_label(std::wstring_view label) {
    ValueRange range;
    range.least = number_field(label, L"min").value_or(range.least);
    range.most = number_field(label, L"max").value_or(std::max(range.most, range.least));
    if (range.least > range.most) {
        std::swap(range.least, range.most);
    }
    if (const double step = number_field(label, L"step").value_or(0); step > 0) {
        range.step = step;
    }
    range.wraps = label_field(label, L"wrap").has_value();
    for (const std::wstring_view name : {L"min", L"step"}) {
        range.decimals = std::max(range.decimals, decimals_in(label_field(label, name).value_or(L"")));
    }
    return range;
}

double fraction_of(const ValueRange& range, double value) {
    const double whole = half_span(range);
    return whole > 0 ? (held(range, value) / 2 - range.least / 2) / whole : 0;
}

double value_at(const ValueRange& range, double fraction) {
    if (!(fraction > 0)) {
        return range.least;
    }
    if (fraction >= 1) {
        return range.most;
    }
    const double distance = 2 * fraction * half_span(range);
    const double value = range.least + std::round(distance / range.step) * range.step;
    return std::isfinite(value) ? held(range, value)
                                : held(range, range.least * (1 - fraction) + range.most * fraction);
}

double stepped(const ValueRange& range, double value, int steps) {
    if (range.wraps && steps > 0 && value >= range.most) {
        return range.least;
    }
    if (range.wraps && steps < 0 && value <= range.least) {
        return range.most;
    }
    return held(range, value + steps * range.step);
}

int steps_a_page(const ValueRange& range) {
    constexpr double pages = 5;  // of the half span
    constexpr double most_steps = 1e6;
    return static_cast<int>(std::clamp(std::round(half_span(range) / pages / range.step), 1.0, most_steps));
}

int decimals_in(std::wstring_view text) {
    const std::size_t exponent_at = std::min(text.find_first_of(L"eE"), text.size());
    const std::size_t point = text.substr(0, exponent_at).find(L'.');
    std::size_t end = point == text.npos ? 0 : point + 1;
    while (point != text.npos && end < text.size() && text[end] >= L'0' && text[end] <= L'9') {
        ++end;
    }
    const double written = point == text.npos ? 0 : static_cast<double>(end - point - 1);
    const double exponent = base::number_from_text(text.substr(std::min(exponent_at + 1, text.size())));
    return static_cast<int>(std::clamp(written - exponent, 0.0, static_cast<double>(most_decimals)));
}

std::wstring value_text(const ValueRange& range, double value, std::wstring_view former) {
    return number_text(value, std::max(range.decimals, decimals_in(former)));
}

std::wstring stepped_text(std::wstring_view label, std::wstring_view text, int steps) {
    const ValueRange range = range_from_label(label);
    return value_text(range, stepped(range, base::number_from_text(text), steps), text);
}

std::wstring number_text(double number, int decimals) {
    constexpr double least_with_exponent = 1e15;
    char digits[64];
    const bool plain = std::abs(number) < least_with_exponent;
    const auto end = plain ? std::to_chars(digits, std::end(digits), number, std::chars_format::fixed, decimals)
                           : std::to_chars(digits, std::end(digits), number);
    std::wstring text(digits, end.ptr);
    if (text.front() == L'-' && text.find_first_of(L"123456789") == text.npos) {
        text.erase(0, 1);  // "-0.0" becomes "0.0"
    }
    return text;
}

}  // namespace corvanes
