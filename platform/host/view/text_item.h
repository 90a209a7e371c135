// A line of text as it stands in a drawing, and how wide it is without a device: for line breaks, boxes and picking.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/host/view/geometry.h"

namespace host {

/// A font as text styles ask for it.
struct FontFace {
    std::wstring family;
    bool bold = false;
    bool italic = false;
    bool operator==(const FontFace&) const = default;
};

/// A line of letters that look alike, with its place.
struct TextItem {
    enum class Anchor : uint8_t { left, centre, right };

    std::wstring text;
    /// From the text's own plane to the drawing: the anchor on the base line is the origin, capitals are 1 high, the
    /// line runs along x. Width factor, slant, rotation and mirroring are all in here.
    Affine2 frame;
    /// Where not 0, the line is stretched along x to this width (in the text's own plane).
    double fit_width = 0;
    Anchor anchor = Anchor::left;
    bool from_right = false;  ///< the line that it is in begins at the right, as Hebrew does
    uint16_t font = 0;        ///< in DisplayList::fonts
};

/// The width of a line in heights of its capitals, for a common sans-serif face. An estimate for any other font.
double estimated_width(std::wstring_view text);

/// Whether a line begins at the right: its first letter is of Hebrew, Arabic or their neighbours.
bool runs_from_right(std::wstring_view text);

/// The area of an item's line in its own plane, from a little under the base line to the height of the capitals.
Box2 text_area(const TextItem& item);

}  // namespace host
