// Conversion between wide text and 8-bit code pages or UTF-8, without the C runtime's locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

constexpr unsigned code_page_hebrew = 1255;
constexpr unsigned code_page_utf8 = 65001;

/// The system's ANSI code page (GetACP on Windows; 1255 elsewhere, where only tests ask).
unsigned system_code_page();

/// Whether this system can convert `code_page` at all.
bool code_page_known(unsigned code_page);

/// Bytes to wide text. A byte that a single-byte code page does not define becomes U+F700 and its value, which goes
/// back to that byte; what is not valid in UTF-8 or in a double-byte code page becomes U+FFFD. An unknown code page is
/// read as Latin-1.
std::wstring wide_from_bytes(std::string_view bytes, unsigned code_page);

/// Wide text to bytes, or nothing when a character has no exact form in the code page (never a best fit).
std::optional<std::string> bytes_from_wide(std::wstring_view text, unsigned code_page);

std::wstring wide_from_utf8(std::string_view bytes);
/// Unpaired surrogates become U+FFFD.
std::string utf8_from_wide(std::wstring_view text);
bool valid_utf8(std::string_view bytes);
bool is_ascii(std::string_view bytes);

enum class ByteOrder { little_endian, big_endian };

/// UTF-16 without a mark. Surrogates without their partners become U+FFFD both ways, and so does half a unit at the
/// end.
std::wstring wide_from_utf16(std::string_view bytes, ByteOrder order);
std::string utf16_from_wide(std::wstring_view text, ByteOrder order);

}  // namespace base
