#include "common/cell_comparison.h"

#include <cwchar>
#include <string_view>

#include "base/case_folding.h"
#include "common/price_text.h"

namespace corvanes {
namespace {

enum Kind : std::uint8_t { absent, without_text, empty_text, text, number };

constexpr size_t letters_in_half = 8;
constexpr size_t letters_in_key = 2 * letters_in_half;

int sign(bool less, bool greater) {
    return static_cast<int>(greater) - static_cast<int>(less);
}

/// A letter without its case as a byte that compares as the letter does. ASCII and Hebrew letters have bytes of their
/// own; all others share the few bytes in between, which say nothing about their order: then `shared` is set.
std::uint64_t byte_of(wchar_t letter, bool& shared) {
    constexpr wchar_t alef = 0x05D0;
    constexpr wchar_t tav = 0x05EA;
    constexpr std::uint64_t before_hebrew = 0x80;
    constexpr std::uint64_t first_hebrew = 0x81;
    constexpr std::uint64_t after_hebrew = 0xFF;
    if (letter < 0x80) {
        return static_cast<std::uint64_t>(letter);
    }
    if (letter >= alef && letter <= tav) {
        return first_hebrew + static_cast<std::uint64_t>(letter - alef);
    }
    shared = true;
    return letter < alef ? before_hebrew : after_hebrew;
}

/// Packs the first letters into numbers that compare as the letters do. The places behind the end, or behind a shared
/// byte, are 0.
void pack_letters(std::wstring_view characters, SortKey& key) {
    bool shared = false;
    for (size_t i = 0; i < letters_in_key && i < characters.size() && !shared; ++i) {
        const size_t place = letters_in_half - 1 - i % letters_in_half;
        key.letters[i / letters_in_half] |= byte_of(base::to_lower(characters[i]), shared) << (8 * place);
    }
}

int compare_texts(const SortKey& first, const SortKey& second) {
    if (first.letters != second.letters) {
        return first.letters < second.letters ? -1 : 1;
    }
    return base::compare_ignoring_case(first.text, second.text);
}

}  // namespace

SortKey EmptyLastOrder::read(const CUGCell* cell) const {
    SortKey key;
    if (cell == nullptr) {
        return key;
    }
    key.kind = without_text;
    key.text = cell->GetText();
    if (key.text == nullptr) {
        return key;
    }
    const int type = cell->GetDataType();
    const bool numeric = type == data_number || type == data_boolean || type == data_currency;
    const std::wstring_view characters(key.text);
    key.kind = characters.empty() ? empty_text : by_value_ || numeric ? number : text;
    if (by_value_) {
        key.number = number_from_text(characters);
    } else {
        key.number = numeric ? cell->GetNumber() : 0;
        pack_letters(characters, key);
    }
    return key;
}

int EmptyLastOrder::compare(const SortKey& one, const SortKey& other) const {
    const SortKey& first = descending_ ? other : one;
    const SortKey& second = descending_ ? one : other;
    if (first.kind == absent || second.kind == absent) {
        return sign(second.kind != absent, first.kind != absent);
    }
    if (first.kind == without_text) {
        return second.kind == without_text ? 0 : -1;
    }
    const bool first_empty = first.kind == empty_text;
    const bool second_empty = second.kind == empty_text || second.kind == without_text;
    if (first_empty || second_empty) {
        const int empty_last = descending_ ? -1 : 1;
        return first_empty && second_empty ? 0 : first_empty ? empty_last : -empty_last;
    }
    if (first.kind == text) {
        return compare_texts(first, second);
    }
    // Equal texts compare as equal, even when one of the cells is numeric.
    if (!by_value_ && compare_texts(first, second) == 0) {
        return 0;
    }
    const bool unread = !by_value_ && second.kind == text;
    const double second_number = unread ? std::wcstod(second.text, nullptr) : second.number;
    return sign(first.number<second_number, first.number> second_number);
}

int compare_empty_last(const CUGCell* first, const CUGCell* second, int flags, bool by_value) {
    const EmptyLastOrder order(flags, by_value);
    return order.compare(order.read(first), order.read(second));
}

}  // namespace corvanes
