// The characters that the reordering treats in a special way: brackets, which are mirrored, and separators, which take
// their direction from a neighbour.
#pragma once

#include <cstdint>

namespace corvanes {

/// Alef and tav; final forms lie between them. In code page 1255 they are the bytes 224 to 250.
constexpr wchar_t first_hebrew_letter = 0x05D0;
constexpr wchar_t last_hebrew_letter = 0x05EA;

constexpr bool is_hebrew_letter(wchar_t character) {
    return character >= first_hebrew_letter && character <= last_hebrew_letter;
}

/// The matching bracket; any other character is returned as it is.
constexpr wchar_t GetMirrorChar(wchar_t character) {
    switch (character) {
        case L'(':
            return L')';
        case L')':
            return L'(';
        case L'[':
            return L']';
        case L']':
            return L'[';
        case L'{':
            return L'}';
        case L'}':
            return L'{';
        case L'<':
            return L'>';
        case L'>':
            return L'<';
        default:
            return character;
    }
}

/// Whether the character is one of ( ) [ ] { } < >.
constexpr bool IsMirrorChar(wchar_t character) {
    return GetMirrorChar(character) != character;
}

/// Full stop, slash, semicolon, comma, double quote, asterisk, at sign, grave accent and tilde.
constexpr bool IsNeutralSeparatorNoSpace(wchar_t character) {
    switch (character) {
        case L'.':
        case L'/':
        case L';':
        case L',':
        case L'"':
        case L'*':
        case L'@':
        case L'`':
        case L'~':
            return true;
        default:
            return false;
    }
}

/// The same set and the space.
constexpr bool IsNeutralSeparator(wchar_t character) {
    return character == L' ' || IsNeutralSeparatorNoSpace(character);
}

/// The kinds of neutrals; a neutral's kind decides how it gets its direction.
enum class NeutralKind : std::uint8_t { other, bracket, space, separator };

constexpr NeutralKind neutral_kind(wchar_t character) {
    if (IsNeutralSeparator(character)) {
        return IsNeutralSeparatorNoSpace(character) ? NeutralKind::separator : NeutralKind::space;
    }
    return IsMirrorChar(character) ? NeutralKind::bracket : NeutralKind::other;
}

}  // namespace corvanes
