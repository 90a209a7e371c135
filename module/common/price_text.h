// Numbers in the texts that people type: prices, widths, counters. The results are those of the C runtime's functions
// of the same purpose in the "C" locale, whatever locale the process has.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/number_text.h"

namespace corvanes {

using base::number_from_text;
using base::take_number;

/// The number that is read from a text that is not a number throughout (blanks aside), so that its author may have
/// meant another: 12 for "12,50", 0 for "abc". Nothing for a text that is read whole.
std::optional<double> partly_read_number(std::wstring_view text);

/// An amount of money with two decimals and a point, correctly rounded; no thousands separator.
std::wstring amount_text(double amount);

/// Takes one integer from the front of `text`, which moves past it: leading white space, an optional sign, and digits
/// that are hexadecimal after 0x, octal after 0, decimal otherwise. False, with nothing taken but white space, when no
/// integer stands there. Values beyond 32 bits are limited to the nearest one.
bool take_integer(std::wstring_view& text, int& value);

/// Takes one word (characters up to white space) from the front of `text`; empty when there is none.
std::wstring_view take_word(std::wstring_view& text);

}  // namespace corvanes
