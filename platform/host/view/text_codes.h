// The codes inside text values: %% codes of single lines, formatting codes of paragraphs.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A TEXT or attribute value as it is read: %%d, %%p, %%c and %%nnn become characters, %%u, %%o and %%k go.
std::wstring plain_text(std::wstring_view value);

/// A paragraph text without its formatting codes. What is formatted from the very first character on counts for the
/// whole text; later changes of format are dropped.
struct ParagraphText {
    std::vector<std::wstring> lines;
    std::optional<double> height;         ///< in drawing units
    std::optional<double> height_factor;  ///< of the height that the entity gives
    std::optional<double> width_factor;
    std::optional<int> colour_index;
    std::wstring font_family;
    bool bold = false;
    bool italic = false;
};

ParagraphText parse_paragraphs(std::wstring_view value);

}  // namespace host
