#include "bidi/character_types.h"

namespace corvanes {

BidiType corrected_byte_type(unsigned char byte, BidiType system_type) {
    const bool hebrew_letter = byte >= 0xE0 && byte <= 0xFA;
    return byte < 0x80 || hebrew_letter ? system_type : BidiType::other_neutral;
}

CharacterTypes::CharacterTypes(const ByteTypes& system_types, const ByteCharacters& characters)
    : types_(std::make_unique<std::array<std::uint8_t, table_size>>()) {
    types_->fill(static_cast<std::uint8_t>(BidiType::other_neutral));
    for (unsigned byte = 0; byte < system_types.size(); ++byte) {
        const std::uint32_t code = code_of(characters[byte]);
        if (code < table_size) {
            const BidiType type = corrected_byte_type(static_cast<unsigned char>(byte), system_types[byte]);
            (*types_)[code] = static_cast<std::uint8_t>(type);
        }
    }
}

}  // namespace corvanes
