#include <windows.h>

#include <optional>

#include "base/code_page.h"
#include "bidi/code_page_1255_types.h"
#include "bidi/system_character_types.h"

namespace corvanes {
namespace {

static_assert(system_default_locale == LOCALE_SYSTEM_DEFAULT);
static_assert(static_cast<int>(BidiType::other_neutral) == C2_OTHERNEUTRAL);

std::optional<ByteTypes> ask_system_types() {
    std::array<char, 256> bytes;
    for (unsigned byte = 0; byte < bytes.size(); ++byte) {
        bytes[byte] = static_cast<char>(byte);
    }
    std::array<WORD, 256> answers;
    if (!GetStringTypeA(LOCALE_SYSTEM_DEFAULT, CT_CTYPE2, bytes.data(), static_cast<int>(bytes.size()),
                        answers.data())) {
        return std::nullopt;
    }
    ByteTypes types;
    for (unsigned byte = 0; byte < types.size(); ++byte) {
        types[byte] = static_cast<BidiType>(answers[byte]);
    }
    return types;
}

std::optional<CharacterTypes> make_system_character_types() {
    CPINFO info;
    const bool single_byte = GetCPInfo(CP_ACP, &info) && info.MaxCharSize == 1;
    if (!single_byte) {
        // No byte stands for a Hebrew letter here, so the system's answer about bytes would tell nothing.
        return CharacterTypes(code_page_1255_types(), characters_of_code_page(base::code_page_hebrew));
    }
    const auto types = ask_system_types();
    if (!types) {
        return std::nullopt;
    }
    return CharacterTypes(*types, characters_of_code_page(base::system_code_page()));
}

}  // namespace

BidiType GetCharBidiType(unsigned char byte, unsigned long locale) {
    const char text = static_cast<char>(byte);
    WORD type = 0;
    return GetStringTypeA(locale, CT_CTYPE2, &text, 1, &type) ? static_cast<BidiType>(type) : BidiType::not_applicable;
}

const CharacterTypes* system_character_types() {
    static const std::optional<CharacterTypes> types = make_system_character_types();
    return types ? &*types : nullptr;
}

}  // namespace corvanes
