// Colours of drawing entities.
#pragma once

#include <cstdint>

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

}  // namespace host
