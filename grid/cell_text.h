// Painting a text into a cell's rectangle.
#pragma once

#include <afxwin.h>

namespace corvanes {

// Pixels between a cell's edge and its text.
constexpr int cell_text_margin = 3;

// Fills `rect` with the background colour and draws the text over it in the font that `dc` has selected: from the left
// (one that holds Hebrew from the right), centred upright (several lines from the top), cut off at the rectangle's
// edges. The one place where the grid's texts, headings included, are drawn.
void DrawCellText(CDC& dc, const RECT& rect, const wchar_t* text, COLORREF text_color, COLORREF background);

}  // namespace corvanes
