// Names that a person reads as the same and a program does not.
#pragma once

#include <string>
#include <string_view>

namespace corvanes {

/// The form of a name by which look-alikes are found: names with equal forms look alike. Blanks at the ends are cut
/// off, letters and signs that look like Latin letters or plain signs become those, and all letters become small.
std::wstring look_alike_form(std::wstring_view name);

}  // namespace corvanes
