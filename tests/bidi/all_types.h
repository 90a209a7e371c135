// Character types for tests: every type has a character. None of our code pages has characters of all types.
#pragma once

#include "bidi/code_page_1255_types.h"

namespace corvanes {

/// The types of code page 1255, except that a code below 12 has the type of that number, and the percent sign is an
/// Arabic number. Each character's code is its byte.
inline CharacterTypes all_types() {
    ByteTypes types{};
    ByteCharacters characters{};
    for (unsigned byte = 0; byte < types.size(); ++byte) {
        characters[byte] = static_cast<wchar_t>(byte);
        types[byte] = byte < bidi_type_count ? static_cast<BidiType>(byte) : code_page_1255_types()[byte];
    }
    types['%'] = BidiType::arabic_number;
    return {types, characters};
}

}  // namespace corvanes
