// The layout of a painted text in a rectangle: where its characters go, and which of them a point hits.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "bidi/text_model.h"

namespace corvanes {

/// A rectangle in pixels; its right and bottom edges lie outside.
struct LayoutRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int width() const { return right - left; }
    int height() const { return bottom - top; }
};

struct LayoutPoint {
    int x = 0;
    int y = 0;
};

/// The positions of a text's characters: entry i is the left edge of character i, from 0, when all stand in one row
/// from left to right; the last of its length + 1 entries is the whole width.
using TextPositions = std::vector<std::uint32_t>;
/// Measures a painted text or a part of one.
using MeasureText = std::function<TextPositions(std::wstring_view)>;

/// One character to paint at a place.
struct PlacedCharacter {
    size_t index;
    int x;
    int y;
};

struct TextLayout {
    std::vector<PlacedCharacter> characters;
    int line_count = 0;
    /// How many characters the longest line has.
    int longest_line = 0;
};

/// Lays out the lines of a painted text: from its first character on in a left-to-right text, from its last one on, and
/// each line from its end to its start, in a right-to-left text. Lines that do not fit into the height, and characters
/// that would begin left of the rectangle or at its right edge or beyond, are left out; line feeds are not painted.
/// Lines of a text of several lines that is not aligned to the top are placed as one block. Nothing when the text has
/// no width.
std::optional<TextLayout> lay_out_text(std::wstring_view text, const TextPositions& positions, const LayoutRect& rect,
                                       int line_height, unsigned alignment, bool left_to_right);

/// The part of a text that an editor shows, and the sizes of its characters.
struct TextView {
    LayoutRect client;
    int line_height = 1;
    unsigned alignment = 0;
    int first_visible_column = 0;
    /// Counted from the top row.
    int first_visible_line = 0;
};

/// A painted line and how many of its characters lie before a point.
struct TextHit {
    int line = 0;
    int column = 0;
};

/// The character under a point; negative coordinates count as 0. In a left-to-right line a character lies before the
/// point when its right edge does; in a right-to-left one the walk goes from the right, and a point inside a character
/// counts that one.
TextHit CharFromPoint(const TextModel& model, const TextView& view, const MeasureText& measure, LayoutPoint point);

/// The width of the characters of a painted line from the first visible column up to, not including, `column`.
int PosFromChar(const TextModel& model, const TextView& view, const MeasureText& measure, int line, int column);

/// The upper left corner of the caret at a gap between painted characters.
LayoutPoint caret_point(const TextModel& model, const TextView& view, const MeasureText& measure, size_t gap);

/// The first visible column and line with which the caret shows, as near to the present ones as can be; a line that
/// fits whole is not scrolled.
struct ScrollPlace {
    int column = 0;
    int line = 0;
};
ScrollPlace scroll_to_caret(const TextModel& model, const TextView& view, const MeasureText& measure, size_t gap);

/// The painted lines that show, as one text, without the columns that are scrolled out; and for each of its characters,
/// whether it is in the selected part of the typed text.
struct VisibleText {
    std::wstring text;
    std::vector<bool> selected;
    bool operator==(const VisibleText&) const = default;
};
VisibleText visible_text(const TextModel& model, const TextView& view, TextRange selection);

/// The part of a view that shows some of its rows. Only for texts that are aligned to the top.
TextView rows_of_view(const TextView& view, int first, int count);

/// The rows of a view of which some pixel lies between two heights.
struct RowRange {
    int first;
    int count;
};
RowRange rows_between(const TextView& view, int top, int bottom);

/// How many whole lines fit into the view.
int visible_line_count(const TextView& view);

}  // namespace corvanes
