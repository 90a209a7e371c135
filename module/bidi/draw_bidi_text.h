// The painting of reordered text, character by character.
#pragma once

#include <windows.h>

#include <string_view>

#include "bidi/text_layout.h"

namespace corvanes {

LayoutRect layout_rect(const RECT& rect);

/// Paints characters at their places with the font, colours and background mode of `dc`.
void paint_characters(HDC dc, std::wstring_view text, const TextLayout& layout);

/// Paints a block of lines in the colours and the font of `dc`; lay_out_text tells where each character goes. With
/// `reorder` the text is a typed one and is reordered first, else it is a painted one. The outputs, which may be null,
/// take the number of lines and the length of the longest. Returns the number of lines, 0 for an empty text, -1 when
/// memory runs out, the reordering fails or the text has no width; then nothing is painted.
int DrawBidiText(HDC dc, const wchar_t* text, const RECT& rect, int* line_count, int* longest_line, unsigned alignment,
                 int left_to_right, int reorder);

/// Paints a typed line from right to left, from the right edge of `rect` on and centred upright, cut off at `clip`.
void DrawRightToLeftLine(HDC dc, std::wstring_view line, const RECT& rect, const RECT& clip);

}  // namespace corvanes
