// Writes a display list as an SVG file.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/host/view/display_list.h"

namespace host {

struct SvgPicture {
    std::string text;       ///< UTF-8; empty when it would be larger than was asked for, or than a file may be
    uint64_t elements = 0;  ///< that a viewer draws: those of a symbol for each reference to it
    size_t left_out = 0;    ///< references that a viewer would be too long with
};

/// Blocks are symbols, references to them <use> elements with data-block and data-handle; data-box of a symbol is
/// "x y width height" around it. The whole is as large in pixels as the drawing is in its picture, and loads nothing.
/// `drawing` is what the list was made of. There is no text of more than `most_elements`, where that is given; points
/// count too, many of them as an element. Without it references are left out where there are too many. The text is
/// written into `memory`, whatever is there: new memory takes the system as long as the writing.
SvgPicture svg_picture(const DisplayList& list, const dxf::Drawing& drawing, std::optional<uint64_t> most_elements = {},
                       std::string memory = {});

/// Whether references alone give a picture of the drawing's model space more elements, at two for each that shows
/// something: its own and one of its block's. Needs no display list.
bool has_more_elements(const dxf::Drawing& drawing, uint64_t most_elements);

}  // namespace host
