// Puts the page of a bill together: one HTML file with the bill beside its drawing, which loads nothing.
#pragma once

#include <string>
#include <string_view>

namespace corvanes {

/// The page's own parts, UTF-8. In the HTML, {{policy}}, {{style}}, {{drawing}}, {{data}} and {{script}} are places.
struct PageSources {
    std::string_view html;
    std::string_view style;
    std::string_view script;
};

/// The page, UTF-8. `bill`: the object that CORVANES_JSON has written. `drawing`: an SVG file of the host's, where
/// references are lit, or a PNG file, for which the bill's handles are left out. A browser runs nothing but the page's
/// own script, whatever names and texts stand in the bill and the drawing.
std::string bill_page(const PageSources& sources, std::string_view bill, std::string_view drawing);

}  // namespace corvanes
