// Comparison of a text with a pattern in which "*" stands for any run of characters.
#pragma once

#include <string_view>

namespace host {

/// True when the whole text fits the pattern. Case matters. Linear but for the tail after each "*".
bool matches_wildcard(std::wstring_view pattern, std::wstring_view text);

}  // namespace host
