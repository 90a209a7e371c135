// The characters that the reordering treats by themselves: mirrored brackets, and separators that lean on a neighbour.
#pragma once

#include <cstdint>

namespace corvanes {

/// Alef and tav; final forms lie between them. In code page 1255 they are the bytes 224 to 250.
constexpr wchar_t first_hebrew_letter = 0x05D0;
constexpr wchar_t last_hebrew_letter = 0x05EA;

constexpr bool is_hebrew_letter(wchar_t character) {
    return character >= first_hebrew_letter && character <= last_hebrew_letter;
}

/// The matching bracket; any other character comes back as it is.
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

/// The kinds of neutrals, which decide how a neutral finds its direction.
enum class NeutralKind : std::uint8_t { other, bracket, space, separator };

constexpr NeutralKind neutral_kind(wchar_t character) {
    if (IsNeutralSeparator(character)) {
        return IsNeutralSeparatorNoSpace(character) ? NeutralKind::separator : NeutralKind::space;
    }
    return IsMirrorChar(character) ? NeutralKind::bracket : NeutralKind::other;
}

}  // namespace corvanes
