// The bidirectional types of Windows code page 1255 (Hebrew), for systems that cannot tell them.
#pragma once

#include "bidi/character_types.h"

namespace corvanes {

/// The types that GetStringTypeA gives on a Hebrew system, before corrected_byte_type corrects the upper half.
const ByteTypes& code_page_1255_types();

/// The characters of the bytes of a single-byte code page.
ByteCharacters characters_of_code_page(unsigned code_page);

}  // namespace corvanes
