// Builds the page of a bill: one HTML file with the bill beside its drawing, which loads no other file.
#pragma once

#include <functional>
#include <string_view>

namespace corvanes {

/// The page's own parts, in UTF-8, which outlive this object. The HTML names the places of its parts by {{policy}},
/// {{style}}, {{drawing}}, {{data}} and {{script}}.
struct PageSources {
    std::string_view html;
    std::string_view style;
    std::string_view script;
};

/// Takes the page piece by piece.
using PageOutput = std::function<void(std::string_view)>;

/// Writes the page in UTF-8. `bill` is the object that CORVANES_JSON has written. `drawing` is the content of an SVG
/// file of the host's, in which the page lights references, or of a PNG file, for which the bill's handles are left
/// out. A browser runs only the page's own script, whatever names and texts stand in the bill and the drawing.
void write_bill_page(const PageSources& sources, std::string_view bill, std::string_view drawing,
                     const PageOutput& write);

}  // namespace corvanes
