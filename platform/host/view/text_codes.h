// The codes inside text values: %% codes of single lines, formatting codes of paragraphs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/view/pen.h"
#include "platform/host/view/text_item.h"

namespace host {

/// Characters of one line that look alike.
struct TextRun {
    enum Rule : uint8_t { under = 1, over = 2, through = 4 };

    std::wstring text;
    double height = 1;  ///< of capitals, in drawing units
    double width_factor = 1;
    double slant = 0;              ///< radians
    double raise = 0;              ///< of the base line above the line's, in drawing units
    bool stacked = false;          ///< begins where the run before it begins
    uint8_t rules = 0;             ///< lines along the run
    std::optional<Ink> ink;        ///< where it is not the entity's
    std::optional<FontFace> face;  ///< where it is not the style's

    /// An empty one that looks like this.
    TextRun without_text() const;
    /// Whether characters of both may stand in one run.
    bool looks_like(const TextRun& other) const;
};

struct TextLine {
    std::vector<TextRun> runs;
    std::optional<TextItem::Anchor> alignment;  ///< where it is not that of the whole text
    double height = 0;                          ///< of a letter that would begin it, in drawing units
};

/// A TEXT or attribute value in runs like `first`: %%d, %%p, %%c and %%nnn become characters, %%u, %%o and %%k rules.
std::vector<TextRun> line_runs(std::wstring_view value, const TextRun& first = {});

/// The same without rules.
std::wstring plain_text(std::wstring_view value);

/// The lines of an MTEXT value, unbroken; `first` is what the entity and its style say of how it begins.
std::vector<TextLine> paragraph_lines(std::wstring_view value, const TextRun& first);

}  // namespace host
