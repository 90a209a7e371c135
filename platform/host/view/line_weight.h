// How wide lines are, by group 370 of entities and layers.
#pragma once

#include <algorithm>
#include <cstdint>

namespace host {

/// A width in pixels from 1, or a mark for one that is known only where it is painted.
struct LineWeight {
    static constexpr uint8_t thin = 1;
    static constexpr uint8_t of_block = 0xFF;        ///< that of the block reference
    static constexpr uint8_t of_block_layer = 0xFE;  ///< that of the block reference's layer

    /// Hundredths of a millimetre, of which 25 are a pixel; what is negative is the usual width.
    static uint8_t in_pixels(int64_t hundredths) {
        constexpr int64_t widest = 211;
        constexpr int64_t of_pixel = 25;
        const int64_t width = std::clamp<int64_t>(hundredths, 0, widest);
        return static_cast<uint8_t>(std::max<int64_t>((width + of_pixel / 2) / of_pixel, thin));
    }
};

}  // namespace host
