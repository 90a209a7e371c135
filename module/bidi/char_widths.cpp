#include "bidi/char_widths.h"

#include <algorithm>

namespace corvanes {
namespace {

/// Whether two characters are the halves of a surrogate pair, in either order.
bool may_pair(wchar_t left, wchar_t right) {
    return (IS_HIGH_SURROGATE(left) && IS_LOW_SURROGATE(right)) || (IS_LOW_SURROGATE(left) && IS_HIGH_SURROGATE(right));
}

/// Whether `position` splits a surrogate pair of a painted text. Halves that follow each other are paired from the
/// first two on, in whichever direction their run is painted.
bool splits_painted_pair(std::wstring_view text, size_t position) {
    if (position >= text.size()) {
        return false;
    }
    size_t start = position;
    while (start > 0 && may_pair(text[start - 1], text[start])) {
        --start;
    }
    return (position - start) % 2 != 0;
}

}  // namespace

std::wstring painted_glyph(std::wstring_view text, size_t index) {
    if (splits_painted_pair(text, index + 1)) {
        const bool backwards = IS_LOW_SURROGATE(text[index]);
        const wchar_t first = text[backwards ? index + 1 : index];
        const wchar_t second = text[backwards ? index : index + 1];
        return {first, second};
    }
    return splits_painted_pair(text, index) ? std::wstring() : std::wstring(1, text[index]);
}

int CharWidths::width(HDC dc, wchar_t character) {
    const auto found = widths_.find(character);
    if (found != widths_.end()) {
        return found->second;
    }
    INT width = 0;
    ::GetCharWidthW(dc, character, character, &width);
    widths_.emplace(character, width);
    return width;
}

TextPositions CharWidths::positions(HDC dc, std::wstring_view text) {
    TextPositions positions{0};
    positions.reserve(text.size() + 1);
    for (size_t i = 0; i < text.size(); ++i) {
        const std::wstring glyph = painted_glyph(text, i);
        int advance = 0;
        if (glyph.size() == 1) {
            advance = width(dc, glyph.front());
        } else if (!glyph.empty()) {
            SIZE size{};
            ::GetTextExtentPoint32W(dc, glyph.data(), static_cast<int>(glyph.size()), &size);
            advance = size.cx;
        }
        positions.push_back(positions.back() + static_cast<std::uint32_t>(std::max(0, advance)));
    }
    return positions;
}

int GetCharPositions(HDC dc, const wchar_t* text, size_t length, std::uint32_t* positions) {
    if (positions == nullptr) {
        return -1;
    }
    const TextPositions found = CharWidths().positions(dc, {text, length});
    std::copy(found.begin(), found.end(), positions);
    return static_cast<int>(found.back());
}

}  // namespace corvanes
