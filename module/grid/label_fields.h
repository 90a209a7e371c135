// The label of a cell as a list of settings: "min=0; max=10; wrap". A setting ends at a semicolon or a line's end.
#pragma once

#include <optional>
#include <string_view>

namespace corvanes {

// The value of the first setting of this name, without blanks around it; empty for a name that stands alone; nothing
// when the label lacks it. Case does not matter in ASCII.
std::optional<std::wstring_view> label_field(std::wstring_view label, std::wstring_view name);

// Takes the text up to one of `separators` off the front of `rest`, and that separator; without blanks around it.
std::wstring_view take_part(std::wstring_view& rest, std::wstring_view separators);

// Takes one word, up to a blank, and the blanks before it; empty at the end.
std::wstring_view take_word_of(std::wstring_view& rest);

// The number of a setting; nothing when the setting is absent, is no number, or is not finite.
std::optional<double> number_field(std::wstring_view label, std::wstring_view name);

bool same_word(std::wstring_view first, std::wstring_view second);

}  // namespace corvanes
