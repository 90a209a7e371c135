// The widths of characters in a font, and the positions of a text's characters that follow from them.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <unordered_map>

#include "bidi/text_layout.h"

namespace corvanes {

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
