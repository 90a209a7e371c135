#include "grid/gauge_scale.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "grid/label_fields.h"

namespace corvanes {

std::vector<GaugeBand> bands_from_label(std::wstring_view label, const ValueRange& range) {
    std::vector<GaugeBand> bands;
    std::wstring_view rest = label_field(label, L"bands").value_or(std::wstring_view());
    while (!rest.empty()) {
        std::wstring_view band = take_part(rest, L",");
        const std::size_t length = band.size();
        const double end = base::take_number(band);
        if (const auto color = color_from_text(take_word_of(band)); color && band.size() < length) {
            bands.push_back({std::clamp(end, range.least, range.most), *color});
        }
    }
    std::stable_sort(bands.begin(), bands.end(),
                     [](const GaugeBand& left, const GaugeBand& right) { return left.end < right.end; });
    return bands;
}

std::size_t band_at(const std::vector<GaugeBand>& bands, double value) {
    const auto found =
        std::find_if(bands.begin(), bands.end() - 1, [value](const GaugeBand& band) { return value <= band.end; });
    return static_cast<std::size_t>(found - bands.begin());
}

std::vector<double> scale_marks(const ValueRange& range, double distance, int most) {
    const double span = range.most - range.least;
    if (!(distance > 0) || most < 2 || !(span >= 0) || !std::isfinite(span / distance)) {
        return {};
    }
    distance *= std::max(1.0, std::ceil(span / distance / (most - 1)));
    // A whole number of distances reaches the end in spite of the rounding of each.
    const int count = static_cast<int>(span / distance + 1e-9) + 1;
    std::vector<double> marks(static_cast<std::size_t>(count), range.least);
    for (std::size_t mark = 1; mark < marks.size(); ++mark) {
        marks[mark] += static_cast<double>(mark) * distance;
    }
    return marks;
}

}  // namespace corvanes
