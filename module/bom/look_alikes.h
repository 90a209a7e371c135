// Names that a person reads as the same and a program does not.
#pragma once

#include <string>
#include <string_view>

namespace corvanes {

/// What is left of a name when blanks at its ends go, letters of other alphabets and signs that look like Latin letters
/// or plain signs become those, and case is forgotten: two names with one such form look alike.
std::wstring look_alike_form(std::wstring_view name);

}  // namespace corvanes
