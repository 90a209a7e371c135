#include "grid/pie_slices.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "grid/label_fields.h"

namespace corvanes {

namespace {

constexpr double turn = 6.283185307179586;

}  // namespace

std::vector<double> numbers_in(std::wstring_view text) {
    std::vector<double> numbers;
    while (!text.empty()) {
        std::wstring_view part = take_part(text, L" \t\r\n,;");
        const std::size_t length = part.size();
        const double number = base::take_number(part);
        if (part.size() < length) {
            numbers.push_back(number);
        }
    }
    return numbers;
}

std::vector<PieSlice> pie_slices(const std::vector<double>& numbers, double whole) {
    const double largest = numbers.empty() ? 0 : *std::max_element(numbers.begin(), numbers.end());
    const auto share = [largest](double number) {
        return std::isinf(largest) ? (number == largest ? 1.0 : 0.0) : std::max(0.0, number) / largest;
    };
    if (!(largest > 0)) {
        return {};
    }
    if (numbers.size() == 1) {
        return {{0, 0, whole > largest ? largest / whole : 1}};
    }
    double sum = 0;
    for (const double number : numbers) {
        sum += share(number);
    }
    std::vector<PieSlice> slices;
    double before = 0;
    for (std::size_t index = 0; index < numbers.size(); ++index) {
        if (const double part = share(numbers[index]); part > 0) {
            slices.push_back({index, before / sum, (before + part) / sum});
            before += part;
        }
    }
    return slices;
}

std::optional<std::size_t> slice_at(const std::vector<PieSlice>& slices, double x, double y, double radius) {
    if (x * x + y * y > radius * radius) {
        return std::nullopt;
    }
    const double angle = std::atan2(x, -y) / turn;
    const double place = angle < 0 ? angle + 1 : angle;
    const auto found = std::find_if(slices.begin(), slices.end(), [place](const PieSlice& slice) {
        return place >= slice.start && place < slice.end;
    });
    return found != slices.end() ? std::optional(static_cast<std::size_t>(found - slices.begin())) : std::nullopt;
}

std::vector<PixelPoint> slice_outline(PixelPoint center, int radius, const PieSlice& slice) {
    const double size = slice.end - slice.start;
    const int steps = std::max(1, static_cast<int>(std::ceil(size * turn * radius / 2)));
    std::vector<PixelPoint> corners;
    if (size < 1) {
        corners.push_back(center);
    }
    for (int step = 0; step <= steps; ++step) {
        const double angle = (slice.start + size * step / steps) * turn;
        corners.push_back({center.x + static_cast<int>(std::lround(radius * std::sin(angle))),
                           center.y - static_cast<int>(std::lround(radius * std::cos(angle)))});
    }
    return corners;
}

}  // namespace corvanes
