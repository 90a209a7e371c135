// Colours in labels, and colours made of others. Pure.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace corvanes {

// 0x00BBGGRR, as the system's COLORREF.
using PixelColor = std::uint32_t;

// "#RRGGBB", or one of the common English names: black, gray, silver, white, red, orange, yellow, green, blue and their
// like. Nothing for any other text.
std::optional<PixelColor> color_from_text(std::wstring_view text);

// Half of each.
PixelColor mixed(PixelColor first, PixelColor second);

// Black or white, whichever can be read better on this colour.
PixelColor readable_on(PixelColor background);

// A colour for the part with this number, unlike its neighbours'.
PixelColor palette_color(std::size_t number);

}  // namespace corvanes
