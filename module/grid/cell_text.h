// The painting of a text into a cell's rectangle.
#pragma once

#include <afxwin.h>

#include <string_view>

namespace corvanes {

// Pixels between a cell's edge and its text.
constexpr int cell_text_margin = 3;

// A text that holds Hebrew goes from the right, one that does not from the left, unless it is to be aligned right.
struct CellLook {
    COLORREF text;
    COLORREF background;
    bool align_right = false;
    bool centered = false;
    int pressed_part = 0;  // the part of a control that is held down, as its type numbers parts
};

// Fills `rect` with the background colour and draws the text over it in the font that `dc` has selected, centred
// upright (several lines from the top). A line that does not fit ends in an ellipsis; a number becomes number signs.
// The one place where the grid's texts, headings included, are drawn.
void DrawCellText(CDC& dc, const RECT& rect, const wchar_t* text, const CellLook& look);

// Draws the text in the same way, but over what is there already.
void DrawTextOver(CDC& dc, const RECT& rect, const wchar_t* text, const CellLook& look);

// The size in pixels of one line, and of a text of any number of lines.
int text_width(CDC& dc, std::wstring_view line);
SIZE text_size(CDC& dc, std::wstring_view text);

// The smallest rectangle, in pixels, in which DrawCellText shows every line of the text whole.
SIZE CellTextSize(CDC& dc, const wchar_t* text);

// Whether DrawCellText would show every line of the text whole.
bool CellTextFits(CDC& dc, const RECT& rect, const wchar_t* text);

}  // namespace corvanes
