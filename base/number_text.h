// Decimal numbers at the front of texts, read as the C runtime's functions do in the "C" locale, whatever locale the
// process has.
#pragma once

#include <string_view>

namespace base {

/// White space of ASCII, or the no-break space.
bool is_space(wchar_t character);
void skip_space(std::wstring_view& text);
/// Moves `text` past a sign, if there is one; true for a minus.
bool take_sign(std::wstring_view& text);

/// The number at the front of a text: leading white space, an optional sign, decimal digits with an optional "." and
/// exponent; whatever follows is ignored, and a text without a number is 0. Too large a number is infinite.
double number_from_text(std::wstring_view text);

/// The same, and moves `text` past the number; where there is no number, `text` stays as it is.
double take_number(std::wstring_view& text);

}  // namespace base
