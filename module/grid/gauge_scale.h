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

// Reads the setting "bands", as in "50 green, 120 #FFC000, 200 red": the ends, held within the range, in rising order,
// each with its colour. A band without a number or a colour is left out.
std::vector<GaugeBand> bands_from_label(std::wstring_view label, const ValueRange& range);

// The index of the band that a value lies in; that of the last one for values beyond. `bands` must not be empty.
std::size_t band_at(const std::vector<GaugeBand>& bands, double value);

// The values of the marks: the least value of the range, and the values at each `distance` from it. When these would be
// more than `most`, the distance is multiplied by a whole number.
std::vector<double> scale_marks(const ValueRange& range, double distance, int most);

}  // namespace corvanes
