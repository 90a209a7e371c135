// The one place where the module's texts become bytes of a file, and bytes become texts.
#pragma once

#include <string>
#include <string_view>

namespace corvanes {

/// How the bytes of a text file stand for its characters.
enum class TextEncoding { system_code_page, utf8, utf8_behind_mark, utf16_little_endian, utf16_big_endian };

struct DecodedText {
    std::wstring text;
    TextEncoding encoding = TextEncoding::system_code_page;
};

/// The text of a file, as editors save it: UTF-8 or UTF-16 when the bytes begin with its byte-order mark; UTF-8 when
/// they go beyond ASCII and are valid UTF-8 throughout, which no text in a single-byte code page is by chance; else the
/// system's ANSI code page.
DecodedText decoded_text(std::string_view bytes);
std::wstring text_from_file_bytes(std::string_view bytes);

/// The bytes of a text file in an encoding. A text that these bytes would not give back (the code page lacks a
/// character, or the bytes pass for another encoding) becomes UTF-8 behind a byte-order mark instead.
std::string file_bytes_from_text(std::wstring_view text, TextEncoding encoding = TextEncoding::system_code_page);

}  // namespace corvanes
