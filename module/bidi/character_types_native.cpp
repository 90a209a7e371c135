#include "base/code_page.h"
#include "bidi/code_page_1255_types.h"
#include "bidi/system_character_types.h"

namespace corvanes {

BidiType GetCharBidiType(unsigned char byte, unsigned long /*locale*/) {
    return code_page_1255_types()[byte];
}

const CharacterTypes* system_character_types() {
    static const CharacterTypes types(code_page_1255_types(), characters_of_code_page(base::code_page_hebrew));
    return &types;
}

}  // namespace corvanes
