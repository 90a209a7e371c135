// LineClasses, the characters of a line by their classes, before any rule has run.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "bidi/character_types.h"
#include "bidi/position_set.h"

namespace corvanes {

/// Which positions of a line hold characters of each type, as far as the rules tell types apart, and of each kind of
/// neutrals (a kind goes by the character alone, whatever its type). Positions beyond the line are in no set.
struct LineClasses {
    size_t length = 0;
    size_t words = 0;

    PositionSet left_to_right;
    PositionSet right_to_left;
    PositionSet european_number;
    PositionSet european_separator;
    PositionSet european_terminator;
    PositionSet arabic_number;
    PositionSet common_separator;
    PositionSet neutral;
    PositionSet untyped;

    PositionSet bracket;
    PositionSet space;
    PositionSet separator;

    /// Sorts the characters of a line into the sets. Throws std::bad_alloc.
    void classify(std::wstring_view text, const CharacterTypes& types);

  private:
    void resize(size_t new_length);
    void sort_word(size_t word, const std::uint8_t* classes);

    std::vector<std::uint8_t> classes_;
};

}  // namespace corvanes
