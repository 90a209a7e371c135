#include "platform/host/prompt/input_text.h"

#include <charconv>
#include <cmath>

namespace host {
namespace {

constexpr std::wstring_view blanks = L" \t";

std::wstring_view trimmed(std::wstring_view text) {
    const size_t first = text.find_first_not_of(blanks);
    if (first == std::wstring_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) + 1 - first);
}

template <typename Number>
std::optional<Number> parse_number(std::wstring_view text) {
    std::string digits;
    for (const wchar_t character : trimmed(text)) {
        if (character >= 0x80) {
            return std::nullopt;
        }
        digits.push_back(static_cast<char>(character));
    }
    const char* first = digits.data();
    const char* const last = first + digits.size();
    if (digits.size() > 1 && *first == '+' && first[1] != '-') {
        ++first;
    }
    Number number{};
    const auto [end, error] = std::from_chars(first, last, number);
    if (error != std::errc() || end != last) {
        return std::nullopt;
    }
    return number;
}

std::optional<double> parse_percentage(std::wstring_view text) {
    text = trimmed(text);
    if (text.empty() || text.back() != L'%') {
        return std::nullopt;
    }
    const std::optional<double> number = parse_real(text.substr(0, text.size() - 1));
    return number ? std::optional(*number / 100) : std::nullopt;
}

/// Two or three numbers between commas.
std::optional<Point> parse_parts(std::wstring_view text, std::optional<double> (*parse)(std::wstring_view)) {
    double parts[3] = {0, 0, 0};
    size_t count = 0;
    for (;;) {
        const size_t comma = text.find(L',');
        const std::optional<double> part = parse(text.substr(0, comma));
        if (!part || count == 3) {
            return std::nullopt;
        }
        parts[count++] = *part;
        if (comma == std::wstring_view::npos) {
            break;
        }
        text.remove_prefix(comma + 1);
    }
    if (count < 2) {
        return std::nullopt;
    }
    return Point{parts[0], parts[1], parts[2]};
}

}  // namespace

std::optional<int> parse_integer(std::wstring_view text) {
    return parse_number<int>(text);
}

std::optional<double> parse_real(std::wstring_view text) {
    const std::optional<double> number = parse_number<double>(text);
    return number && std::isfinite(*number) ? number : std::nullopt;
}

std::optional<Point> parse_point(std::wstring_view text) {
    return parse_parts(text, parse_real);
}

std::optional<Point> parse_percent_point(std::wstring_view text) {
    return parse_parts(text, parse_percentage);
}

std::wstring format_real(double number) {
    char digits[32];
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, number);
    return error == std::errc() ? std::wstring(digits, end) : std::wstring();
}

std::wstring format_point(const Point& point) {
    return format_real(point.x) + L"," + format_real(point.y) + L"," + format_real(point.z);
}

std::optional<InputEvent> parse_input_event(std::wstring_view text) {
    text = trimmed(text);
    if (text.empty() || text == L"return") {
        return InputEvent{InputEvent::key, {}, L'\r'};
    }
    const size_t blank = text.find_first_of(blanks);
    const std::wstring_view word = text.substr(0, blank);
    const std::wstring_view rest = blank == std::wstring_view::npos ? std::wstring_view() : trimmed(text.substr(blank));
    if (word == L"key" && rest.size() == 1) {
        return InputEvent{InputEvent::key, {}, rest.front()};
    }
    if (word != L"move" && word != L"pick") {
        return std::nullopt;
    }
    const std::optional<Point> point = parse_point(rest);
    if (!point) {
        return std::nullopt;
    }
    return InputEvent{word == L"move" ? InputEvent::move : InputEvent::pick, *point, 0};
}

}  // namespace host
