// Where the runs of a text stand, by estimated widths.
#pragma once

#include <vector>

#include "platform/host/view/text_codes.h"

namespace host {

/// A run in the plane of its text, in drawing units: x along the lines, y up.
struct PlacedRun {
    TextRun run;
    Vec2 at;  ///< of the anchor, on the base line
    TextItem::Anchor anchor = TextItem::Anchor::left;
    double width = 0;         ///< estimated
    bool fitted = false;      ///< must be as wide as estimated, for another run goes on behind it
    bool from_right = false;  ///< the line runs from the right
};

/// Places the runs of one line, whose alignment point is at 0, 0.
std::vector<PlacedRun> place_line(const std::vector<TextRun>& runs, TextItem::Anchor alignment);

/// How the lines of a text stand about its insertion point at 0, 0.
struct ParagraphSetting {
    double width = 0;                                  ///< lines are broken at blanks to be no wider; 0: they are not
    TextItem::Anchor column = TextItem::Anchor::left;  ///< the place of the insertion point in the width
    int row = 0;                                       ///< its place in the height: 0 top, 1 middle, 2 bottom
    double spacing = 1;                                ///< of base lines, of the usual 5/3 of the height
};

/// Breaks lines that are too wide and places their runs as the setting says.
std::vector<PlacedRun> place_paragraphs(const std::vector<TextLine>& lines, const ParagraphSetting& setting);

/// The box around all letters, from the foot of the lowest to the top of the highest, and as wide as the setting says.
Box2 area_of(const std::vector<PlacedRun>& runs, const ParagraphSetting& setting);

}  // namespace host
