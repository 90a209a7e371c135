// The bidirectional types of Windows code page 1255 (Hebrew), for systems that cannot be asked.
#pragma once

#include "bidi/character_types.h"

namespace corvanes {

/// As GetStringTypeA answers on a Hebrew system, without the correction of the upper half.
const ByteTypes& code_page_1255_types();

/// The characters of the bytes of a single-byte code page.
ByteCharacters characters_of_code_page(unsigned code_page);

}  // namespace corvanes
