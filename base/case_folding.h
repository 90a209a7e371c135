// Case-insensitive comparison of names beyond ASCII, the same in the module, in the host and in native tests.
#pragma once

#include <string>
#include <string_view>

namespace base {

/// The lower-case form of one character; characters without one come back as they are. ASCII takes no system call.
wchar_t to_lower(wchar_t character);

/// The text with every character lowered one by one (the length never changes).
std::wstring lower(std::wstring_view text);

/// Lowers a buffer in place.
void lower_in_place(wchar_t* text, size_t length);

/// Negative, 0 or positive: the two texts ordered by their lower-case characters.
int compare_ignoring_case(std::wstring_view left, std::wstring_view right);

}  // namespace base
