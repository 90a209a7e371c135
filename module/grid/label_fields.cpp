#include "grid/label_fields.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"

namespace corvanes {

namespace {

wchar_t lowered(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + (L'a' - L'A')) : character;
}

std::wstring_view trimmed(std::wstring_view text) {
    base::skip_space(text);
    while (!text.empty() && base::is_space(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

}  // namespace

bool same_word(std::wstring_view first, std::wstring_view second) {
    return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                      [](wchar_t left, wchar_t right) { return lowered(left) == lowered(right); });
}

std::wstring_view take_part(std::wstring_view& rest, std::wstring_view separators) {
    const std::size_t end = std::min(rest.find_first_of(separators), rest.size());
    const std::wstring_view part = trimmed(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    return part;
}

std::wstring_view take_word_of(std::wstring_view& rest) {
    base::skip_space(rest);
    const auto end = std::find_if(rest.begin(), rest.end(), base::is_space);
    const std::wstring_view word = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(word.size());
    return word;
}

std::optional<std::wstring_view> label_field(std::wstring_view label, std::wstring_view name) {
    while (!label.empty()) {
        std::wstring_view value = take_part(label, L";\n");
        if (same_word(take_part(value, L"="), name)) {
            return trimmed(value);
        }
    }
    return std::nullopt;
}

std::optional<double> number_field(std::wstring_view label, std::wstring_view name) {
    std::wstring_view text = label_field(label, name).value_or(std::wstring_view());
    const std::size_t length = text.size();
    const double number = base::take_number(text);
    return text.size() < length && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace corvanes
