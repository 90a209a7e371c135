// Runs of a text, each with a font and a colour of its own, read from a cell's label. Pure.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "grid/pixel_color.h"

namespace corvanes {

struct RunStyle {
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strike_out = false;
    int points = 0;  // the font's size; 0 for that of the grid's font
    std::optional<PixelColor> color;
    std::wstring font;  // empty for the grid's

    bool operator==(const RunStyle&) const = default;
};

struct TextRun {
    std::size_t start;
    std::size_t length;
    RunStyle style;
    bool operator==(const TextRun&) const = default;
};

// The runs of a text of this length, which they cover without a gap. The label gives for each its number of characters
// and its style, "5 bold red; 3 italic size=14 font=Courier New": the words bold, italic, underline and strikeout, a
// colour, a size in points, and last the name of a font. What the label does not cover is plain.
std::vector<TextRun> runs_from_label(std::wstring_view label, std::size_t length);

}  // namespace corvanes
