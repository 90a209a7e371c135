// The one place where the module's texts become bytes of a file, and bytes become texts.
#pragma once

#include <string>
#include <string_view>

namespace corvanes {

/// The bytes of a text file: the system's ANSI code page, or UTF-8 behind a byte-order mark when the code page lacks
/// some character. A text that would itself begin with the mark's bytes is written the second way too.
std::string file_bytes_from_text(std::wstring_view text);

/// The text of a file: UTF-8 when the bytes begin with the byte-order mark, else the system's ANSI code page.
std::wstring text_from_file_bytes(std::string_view bytes);

}  // namespace corvanes
