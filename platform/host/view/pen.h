// The pen that a thing is drawn with: its colour, line weight and dashes, each fixed or taken from the block reference
// that it is in.
#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/host/view/geometry.h"

namespace host {

/// A colour in a display list: fixed, or one that is known only where it is painted.
struct Ink {
    uint32_t value = 0;  ///< 0x00RRGGBB, or one of the marks below

    static constexpr uint32_t mark_foreground = 0xFF000000;   ///< colour 7: black on white, white on black
    static constexpr uint32_t mark_block = 0xFF000001;        ///< the colour of the block reference
    static constexpr uint32_t mark_block_layer = 0xFF000002;  ///< the colour of the block reference's layer
    static constexpr uint32_t mark_background = 0xFF000003;   ///< hides what was drawn before

    static constexpr Ink rgb(uint32_t colour) { return {colour & 0xFFFFFF}; }
    static constexpr Ink foreground() { return {mark_foreground}; }
    static constexpr Ink by_block() { return {mark_block}; }
    static constexpr Ink by_block_layer() { return {mark_block_layer}; }
    static constexpr Ink background() { return {mark_background}; }
    constexpr bool operator==(const Ink&) const = default;
};

/// The colour of an index from 1 to 255 (7 is the foreground); others count as 7.
Ink indexed_ink(int index);

/// The width of lines: pixels from 1, or a mark for one that is known only where it is painted.
struct LineWeight {
    static constexpr uint8_t thin = 1;
    static constexpr uint8_t of_block = 0xFF;        ///< that of the block reference
    static constexpr uint8_t of_block_layer = 0xFE;  ///< that of the block reference's layer

    /// Group 370 of entities and layers: hundredths of a millimetre, 25 to a pixel; what is negative is the usual
    /// width.
    static uint8_t in_pixels(int64_t hundredths) {
        constexpr int64_t widest = 211;
        constexpr int64_t of_pixel = 25;
        const int64_t width = std::clamp<int64_t>(hundredths, 0, widest);
        return static_cast<uint8_t>(std::max<int64_t>((width + of_pixel / 2) / of_pixel, thin));
    }
};

/// A linetype's dashes and gaps in turn, in drawing units: a positive length is a dash, 0 a dot, a negative one a gap.
/// Empty for a continuous line.
struct LinePattern {
    /// Numbers that stand for a pattern of DisplayList::patterns.
    static constexpr uint16_t continuous = 0;
    static constexpr uint16_t of_block = 0xFFFF;        ///< that of the block reference
    static constexpr uint16_t of_block_layer = 0xFFFE;  ///< that of the block reference's layer
    static constexpr uint16_t last = 0xFFFD;

    std::vector<double> lengths;

    double total() const;
    LinePattern scaled(double factor) const;
    /// The pattern for lines that take the pixels of both their ends: dashes are a pixel shorter.
    LinePattern in_pixels(double pixels_per_unit) const;
};

/// Cuts the connected line through `points` by a pattern in the same units, which is not empty and longer than 0. The
/// line begins and ends alike, with a part of the pattern's first dash or with a dot, and is left whole when it is
/// shorter than the pattern. Appends the two ends of each dash to `dashes`, twice the same point for a dot; a dash
/// around a corner is several. What lies outside of `area` may be left out.
void cut_by_pattern(const std::vector<Vec2>& points, const LinePattern& pattern, const Box2& area,
                    std::vector<Vec2>& dashes);

}  // namespace host
