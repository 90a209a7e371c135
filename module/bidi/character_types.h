// The bidirectional type of each character, and the groups that the reordering rules speak of.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

#include "bidi/special_characters.h"

namespace corvanes {

/// The numbers are those of the system's CT_CTYPE2 classes.
enum class BidiType : std::uint16_t {
    not_applicable = 0,
    left_to_right = 1,
    right_to_left = 2,
    european_number = 3,
    european_separator = 4,
    european_terminator = 5,
    arabic_number = 6,
    common_separator = 7,
    block_separator = 8,
    segment_separator = 9,
    white_space = 10,
    other_neutral = 11,
};

constexpr bool IsStrongType(BidiType type) {
    return type == BidiType::left_to_right || type == BidiType::right_to_left;
}
constexpr bool IsWeakType(BidiType type) {
    return type >= BidiType::european_number && type <= BidiType::common_separator;
}
constexpr bool IsNeutralType(BidiType type) {
    return type >= BidiType::block_separator && type <= BidiType::other_neutral;
}
constexpr bool IsNotApplicable(BidiType type) {
    return type == BidiType::not_applicable;
}

constexpr size_t bidi_type_count = 12;

/// The type of each byte of a single-byte code page, and the character that each byte stands for.
using ByteTypes = std::array<BidiType, 256>;
using ByteCharacters = std::array<wchar_t, 256>;

/// What the system says of a byte, corrected: in the upper half only the Hebrew letters of code page 1255 (0xE0 to
/// 0xFA) keep their type, everything else there is a plain neutral.
BidiType corrected_byte_type(unsigned char byte, BidiType system_type);

/// The types by which wide text is reordered: those of the characters' bytes in a code page, corrected. A character
/// that the code page lacks is a neutral, but for the Hebrew letters: they go from right to left in any code page.
class CharacterTypes {
  public:
    CharacterTypes(const ByteTypes& system_types, const ByteCharacters& characters);
    BidiType of(wchar_t character) const { return static_cast<BidiType>(class_of(character) & type_bits); }

    /// Writes one class for each character: its type in the low bits and, from bit `kind_shift` on, its NeutralKind.
    void classify(std::wstring_view text, std::uint8_t* classes) const;
    static constexpr unsigned kind_shift = 4;

  private:
    static constexpr std::uint8_t type_bits = (1U << kind_shift) - 1;
    static constexpr std::uint32_t table_size = 0x10000;
    static std::uint32_t code_of(wchar_t character) { return static_cast<std::uint32_t>(character); }
    std::uint8_t class_of(wchar_t character) const {
        // The last entry, of a code that is no character, also stands for what lies beyond the table.
        return (*classes_)[std::min(code_of(character), table_size - 1)];
    }
    std::unique_ptr<std::array<std::uint8_t, table_size>> classes_;
};

}  // namespace corvanes
