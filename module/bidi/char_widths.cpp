#include "bidi/char_widths.h"

#include <algorithm>

#include "bidi/draw_bidi_text.h"

namespace corvanes {

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
