// Numbers as slices of a pie. Turns count from 0 at the top, clockwise, to 1 at the top again. Pure.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace corvanes {

struct PieSlice {
    std::size_t number;  // the index of the number that the slice stands for
    double start;
    double end;
    bool operator==(const PieSlice&) const = default;
};

struct PixelPoint {
    int x;
    int y;
    bool operator==(const PixelPoint&) const = default;
};

// The numbers in a text, separated by blanks, commas or semicolons; words that are no number are left out.
std::vector<double> numbers_in(std::wstring_view text);

// One number is a slice of `whole`, several are slices of their sum. Numbers that are not above 0 have no slice.
std::vector<PieSlice> pie_slices(const std::vector<double>& numbers, double whole);

// The slice under a point, which is given by its distances to the right of the centre and below it.
std::optional<std::size_t> slice_at(const std::vector<PieSlice>& slices, double x, double y, double radius);

// The corners of the slice's polygon; those of a whole turn do not include the centre.
std::vector<PixelPoint> slice_outline(PixelPoint center, int radius, const PieSlice& slice);

}  // namespace corvanes
