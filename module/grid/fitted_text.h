// The part of a line that a cell shows when it is too narrow for the line. Pure.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvanes {

// Whether a text is nothing but a number: digits with signs, points and commas. With its end cut off it would read as
// another number.
bool is_number_text(std::wstring_view text);

// The widths, in pixels, of the place for the line, of an ellipsis and of a number sign.
struct LineSpace {
    int width;
    int ellipsis;
    int number_sign;
};

// What is shown: the whole line; its beginning, followed by an ellipsis; or number signs in place of a number.
struct FittedLine {
    enum class Shown { whole, beginning, number_signs } shown;
    std::size_t length;  // how many characters of the line, or number signs, are shown

    bool operator==(const FittedLine&) const = default;
};

// The text with its lines broken at blanks (a word by itself where it must be) so that none is wider than `width` as
// `width_of` measures it.
std::wstring wrapped_text(std::wstring_view text, int width, const std::function<int(std::wstring_view)>& width_of);

// `ends` holds, for each character, the pixels from the line's start to the character's end.
FittedLine fit_line(std::wstring_view line, const std::vector<int>& ends, const LineSpace& space);

// The largest size from `least` to `most` for which `fits` holds, where each size above one that does not fit does not
// either; `least` when none does.
int largest_fitting(int least, int most, const std::function<bool(int)>& fits);

}  // namespace corvanes
