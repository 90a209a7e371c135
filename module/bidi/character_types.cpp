#include "bidi/character_types.h"

namespace corvanes {

BidiType corrected_byte_type(unsigned char byte, BidiType system_type) {
    const bool hebrew_letter = byte >= 0xE0 && byte <= 0xFA;
    return byte < 0x80 || hebrew_letter ? system_type : BidiType::other_neutral;
}

CharacterTypes::CharacterTypes(const ByteTypes& system_types, const ByteCharacters& characters)
    : classes_(std::make_unique<std::array<std::uint8_t, table_size>>()) {
    classes_->fill(static_cast<std::uint8_t>(BidiType::other_neutral));
    for (unsigned byte = 0; byte < system_types.size(); ++byte) {
        const std::uint32_t code = code_of(characters[byte]);
        if (code < table_size) {
            const BidiType type = corrected_byte_type(static_cast<unsigned char>(byte), system_types[byte]);
            (*classes_)[code] = static_cast<std::uint8_t>(type);
        }
    }
    for (std::uint32_t letter = first_hebrew_letter; letter <= last_hebrew_letter; ++letter) {
        (*classes_)[letter] = static_cast<std::uint8_t>(BidiType::right_to_left);
    }
    // All characters with a kind other than `other` are in ASCII.
    for (std::uint32_t code = 0; code < 0x80; ++code) {
        const NeutralKind kind = neutral_kind(static_cast<wchar_t>(code));
        (*classes_)[code] |= static_cast<std::uint8_t>(static_cast<unsigned>(kind) << kind_shift);
    }
}

void CharacterTypes::classify(std::wstring_view text, std::uint8_t* classes) const {
    // Writing bytes may change any object, as far as the compiler knows. These local copies cannot change, so they stay
    // in registers.
    const std::uint8_t* const table = classes_->data();
    const wchar_t* const characters = text.data();
    const size_t length = text.size();
    for (size_t i = 0; i < length; ++i) {
        classes[i] = table[std::min(code_of(characters[i]), table_size - 1)];
    }
}

}  // namespace corvanes
