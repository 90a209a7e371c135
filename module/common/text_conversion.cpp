#include "common/text_conversion.h"

#include <algorithm>
#include <optional>

#include "base/code_page.h"

namespace corvanes {
namespace {

constexpr std::string_view utf8_mark = "\xEF\xBB\xBF";
constexpr std::string_view utf16_little_mark = "\xFF\xFE";
constexpr std::string_view utf16_big_mark = "\xFE\xFF";

TextEncoding encoding_of(std::string_view bytes) {
    if (bytes.starts_with(utf8_mark)) {
        return TextEncoding::utf8_behind_mark;
    }
    if (bytes.starts_with(utf16_little_mark)) {
        return TextEncoding::utf16_little_endian;
    }
    if (bytes.starts_with(utf16_big_mark)) {
        return TextEncoding::utf16_big_endian;
    }
    return !base::is_ascii(bytes) && base::valid_utf8(bytes) ? TextEncoding::utf8 : TextEncoding::system_code_page;
}

/// The text in the encoding, without a look at how it would be read again; nothing when the encoding lacks a character.
std::optional<std::string> encoded(std::wstring_view text, TextEncoding encoding) {
    switch (encoding) {
        case TextEncoding::utf8:
            return base::utf8_from_wide(text);
        case TextEncoding::utf8_behind_mark:
            return std::string(utf8_mark) + base::utf8_from_wide(text);
        case TextEncoding::utf16_little_endian:
            return std::string(utf16_little_mark) + base::utf16_from_wide(text, base::ByteOrder::little_endian);
        case TextEncoding::utf16_big_endian:
            return std::string(utf16_big_mark) + base::utf16_from_wide(text, base::ByteOrder::big_endian);
        default:
            return base::bytes_from_wide(text, base::system_code_page());
    }
}

}  // namespace

DecodedText decoded_text(std::string_view bytes) {
    const TextEncoding encoding = encoding_of(bytes);
    switch (encoding) {
        case TextEncoding::utf8:
            return {base::wide_from_utf8(bytes), encoding};
        case TextEncoding::utf8_behind_mark:
            return {base::wide_from_utf8(bytes.substr(utf8_mark.size())), encoding};
        case TextEncoding::utf16_little_endian:
            return {base::wide_from_utf16(bytes.substr(utf16_little_mark.size()), base::ByteOrder::little_endian),
                    encoding};
        case TextEncoding::utf16_big_endian:
            return {base::wide_from_utf16(bytes.substr(utf16_big_mark.size()), base::ByteOrder::big_endian), encoding};
        default:
            return {base::wide_from_bytes(bytes, base::system_code_page()), encoding};
    }
}

std::wstring text_from_file_bytes(std::string_view bytes) {
    return decoded_text(bytes).text;
}

std::string file_bytes_from_text(std::wstring_view text, TextEncoding encoding) {
    auto bytes = encoded(text, encoding);
    // Where all is ASCII, UTF-8 without a mark and the code page are the same.
    if (bytes && (base::is_ascii(*bytes) || encoding_of(*bytes) == encoding)) {
        return std::move(*bytes);
    }
    return std::string(utf8_mark) + base::utf8_from_wide(text);
}

}  // namespace corvanes
