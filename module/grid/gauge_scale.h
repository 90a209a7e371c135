// The scale of a gauge: bands of colour and marks at even distances. Pure.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "grid/pixel_color.h"
#include "grid/value_range.h"

namespace corvanes {

// A range of values in one colour. It begins at the end of the band before it; the first begins at the least value.
struct GaugeBand {
    double end;
    PixelColor color;
    bool operator==(const GaugeBand&) const = default;
};

// From the setting "bands", "50 green, 120 #FFC000, 200 red": ends within the range, in rising order. What has no
// number or no colour is left out.
std::vector<GaugeBand> bands_from_label(std::wstring_view label, const ValueRange& range);

// The band that a value lies in; the last one for what lies beyond. `bands` is not empty.
std::size_t band_at(const std::vector<GaugeBand>& bands, double value);

// The least value and those each `distance` further; no more than `most`: for that the distance is multiplied by a
// whole number.
std::vector<double> scale_marks(const ValueRange& range, double distance, int most);

}  // namespace corvanes
