// One group of a drawing: a code and a value, as the bytes stand in the file.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace dxf {

/// How groups are laid out: text lines, or binary with codes of one byte (R12) or two bytes (R13 and later).
enum class Encoding : uint8_t { ascii, binary_r12, binary };

/// What a code's value is. Binary drawings store each kind in its own form; ASCII drawings write all as text.
enum class ValueKind : uint8_t { text, real, int16, int32, int64, boolean, chunk };

/// The kind of value that follows `code`. Codes without a documented kind hold text.
ValueKind kind_of(int code);

/// A group within a cursor's bytes. `value` is the raw value: an ASCII value line without its line end, a binary
/// text without its final zero, a binary number's little-endian bytes, a chunk's bytes without its length.
struct Group {
    int code = 0;
    Encoding encoding = Encoding::ascii;
    uint64_t begin = 0;  ///< offset of the code in the cursor's bytes
    uint64_t end = 0;    ///< offset behind the value and its line end
    std::string_view value;

    /// The value without blanks around it: for names of records, sections and tables.
    std::string_view word() const;
    /// Numbers of either encoding; a value that is not a number gives 0. Reals are cut to integers where asked for.
    int64_t integer() const;
    double real() const;
    /// A handle in hexadecimal text; 0 for an empty or malformed one.
    uint64_t handle() const;
};

/// A handle's value from hexadecimal text with blanks around it; 0 for an empty, malformed or too long one.
uint64_t parse_handle(std::string_view text);
/// A handle as hexadecimal text, in capitals.
std::string handle_text(uint64_t handle);

}  // namespace dxf
