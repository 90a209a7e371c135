#include "bidi/code_page_1255_types.h"

#include <algorithm>

#include "base/code_page.h"

namespace corvanes {
namespace {

/// Sixteen bytes a row, one letter a type.
constexpr std::string_view type_letters =
    "000000000989_800"
    "0000000000008889"
    "_**$$$*****+,+,,"
    "nnnnnnnnnn,*****"
    "*LLLLLLLLLLLLLLL"
    "LLLLLLLLLLL*****"
    "*LLLLLLLLLLLLLLL"
    "LLLLLLLLLLL****0"
    "$0*L*****$0*0000"
    "0*********0*0000"
    ",*$$$$*******0**"
    "$$nn*L***n******"
    "**************R*"
    "R**RRRRRRLLLLLLL"
    "RRRRRRRRRRRRRRRR"
    "RRRRRRRRRRRLLLRL";

BidiType type_of_letter(char letter) {
    switch (letter) {
        case 'L':
            return BidiType::left_to_right;
        case 'R':
            return BidiType::right_to_left;
        case 'n':
            return BidiType::european_number;
        case '+':
            return BidiType::european_separator;
        case '$':
            return BidiType::european_terminator;
        case ',':
            return BidiType::common_separator;
        case '8':
            return BidiType::block_separator;
        case '9':
            return BidiType::segment_separator;
        case '_':
            return BidiType::white_space;
        case '*':
            return BidiType::other_neutral;
        default:
            return BidiType::not_applicable;
    }
}

ByteTypes make_types() {
    ByteTypes types{};
    static_assert(type_letters.size() == std::tuple_size_v<ByteTypes>);
    std::transform(type_letters.begin(), type_letters.end(), types.begin(), type_of_letter);
    return types;
}

}  // namespace

const ByteTypes& code_page_1255_types() {
    static const ByteTypes types = make_types();
    return types;
}

ByteCharacters characters_of_code_page(unsigned code_page) {
    ByteCharacters characters{};
    for (unsigned byte = 0; byte < characters.size(); ++byte) {
        const char text = static_cast<char>(byte);
        const std::wstring wide = base::wide_from_bytes({&text, 1}, code_page);
        characters[byte] = wide.empty() ? L'\0' : wide.front();
    }
    return characters;
}

}  // namespace corvanes
