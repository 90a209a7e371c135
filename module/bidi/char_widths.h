// The widths of the characters of a painted text in a font, what is painted for each of them, and where it stands.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

#include "bidi/text_layout.h"

namespace corvanes {

/// The text to paint for character `index` of a painted text: the character itself; for the half of a surrogate pair
/// that is painted first, the whole pair in its right order; nothing for the other half.
std::wstring painted_glyph(std::wstring_view text, size_t index);

/// Remembers the widths of one font; to be cleared when the font changes.
class CharWidths {
  public:
    /// For the font that is selected into `dc`. The first painted half of a surrogate pair has the width of both.
    TextPositions positions(HDC dc, std::wstring_view text);
    void clear() { widths_.clear(); }

  private:
    int width(HDC dc, wchar_t character);

    std::unordered_map<wchar_t, int> widths_;
};

/// Stores the position of each character and the whole width in the length + 1 entries of `positions`. Returns the
/// width, or -1 when `positions` is null.
int GetCharPositions(HDC dc, const wchar_t* text, size_t length, std::uint32_t* positions);

}  // namespace corvanes
