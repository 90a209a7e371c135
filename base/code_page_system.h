// What base/code_page asks of the operating system.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

/// How many bytes the longest character of a code page takes; 0 when the system does not know the code page.
unsigned code_page_width(unsigned code_page);

/// A string of complete characters, or nothing when some byte is not defined.
std::optional<std::wstring> system_decode(std::string_view bytes, unsigned code_page);

/// Exact bytes, or nothing when a character has none.
std::optional<std::string> system_encode(std::wstring_view text, unsigned code_page);

}  // namespace base
