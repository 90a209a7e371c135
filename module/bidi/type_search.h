// Searches of a line for the nearest character of a group of types.
#pragma once

#include "bidi/character_types.h"

namespace corvanes {

/// Each search looks at index `position` first and goes on by one: forward up to and including `limit`, backward down
/// to and including 0. At the first type of its group it stores the index and the type and returns true; else both are
/// left as they were.
bool FindStrongType(const BidiType* types, int limit, int& position, BidiType& found, bool forward);
bool FindWeakType(const BidiType* types, int limit, int& position, BidiType& found, bool forward);
bool FindNeutralType(const BidiType* types, int limit, int& position, BidiType& found, bool forward);

/// These search in the same way a text in the system's ANSI code page, and classify each byte when they meet it.
bool FindStrongType(const char* text, int limit, int& position, BidiType& found, bool forward);
bool FindWeakType(const char* text, int limit, int& position, BidiType& found, bool forward);
bool FindNeutralType(const char* text, int limit, int& position, BidiType& found, bool forward);

}  // namespace corvanes
