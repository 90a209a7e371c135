#include "platform/host/view/ink.h"

#include <cmath>
#include <initializer_list>

namespace host {

namespace {

constexpr uint32_t basic_colours[] = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF,
                                      0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr uint32_t greys[] = {0x333333, 0x5B5B5B, 0x848484, 0xADADAD, 0xD6D6D6, 0xFFFFFF};

/// Indexes 10 to 249: 24 hues, each in five shades, each shade full and half saturated.
uint32_t hue_colour(int index) {
    constexpr double shades[] = {1.0, 165.0 / 255, 127.0 / 255, 76.0 / 255, 38.0 / 255};
    const int turn = index / 10 - 1;
    const double hue = turn * 15 / 60.0;
    const double value = shades[index % 10 / 2];
    const double saturation = index % 2 == 0 ? 1.0 : 0.5;
    uint32_t colour = 0;
    for (const double offset : {5.0, 3.0, 1.0}) {  // red, green, blue
        const double at = std::fmod(offset + hue, 6.0);
        const double ramp = std::fmax(0.0, std::fmin(1.0, std::fmin(at, 4.0 - at)));
        const double part = value * (1 - saturation * ramp);
        colour = colour << 8 | static_cast<uint32_t>(part * 255 + 1e-6);
    }
    return colour;
}

}  // namespace

Ink indexed_ink(int index) {
    if (index < 1 || index > 255 || index == 7) {
        return Ink::foreground();
    }
    if (index < 10) {
        return Ink::rgb(basic_colours[index - 1]);
    }
    return Ink::rgb(index < 250 ? hue_colour(index) : greys[index - 250]);
}

}  // namespace host
