// The operating system's classification of characters, in its ANSI code page, for the reordering.
#pragma once

#include "bidi/character_types.h"

namespace corvanes {

/// The system's default locale (LOCALE_SYSTEM_DEFAULT).
constexpr unsigned long system_default_locale = 0x0800;

/// The type of one byte in the code page of a locale; not_applicable when the system refuses. Off Windows the locale is
/// not looked at and the code page is 1255.
BidiType GetCharBidiType(unsigned char byte, unsigned long locale);

/// The types of all characters on this system, found out once. Null when the system cannot tell.
const CharacterTypes* system_character_types();

}  // namespace corvanes
