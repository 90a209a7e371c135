// The rules that give each character of a line its embedding level. They run in the order of their declarations.
#pragma once

#include <cstddef>
#include <cstdint>

#include "bidi/character_types.h"
#include "bidi/neutral_direction.h"

namespace corvanes {

/// One line on its way through the rules, cut into units: a run of letters of one direction, a run of European digits,
/// or any other character by itself. The rules cannot tell the characters of one unit apart, so they look at each unit
/// once. `starts` and `types` have one entry more than there are units: the text's length, and not_applicable.
struct LevelLine {
    const wchar_t* text;
    const std::uint32_t* starts;
    BidiType* types;
    Level* levels;
    size_t length;
    bool left_to_right;

    Level base_level() const { return left_to_right ? 0 : 1; }
    /// The character of a unit of one character.
    wchar_t character(size_t unit) const { return text[starts[unit]]; }
};

/// Cuts a text into units; `starts` and `types` have room for length + 1 entries. Returns how many units there are.
size_t cut_into_units(const wchar_t* text, size_t length, const CharacterTypes& character_types, std::uint32_t* starts,
                      BidiType* types);

/// Every change of strong direction toggles between two levels; the first strong run keeps the base level, whatever its
/// direction. A character without a type gets level 0 and takes the line back to the base level.
void assign_first_levels(const LevelLine& line);

/// "1.5", "1+2": one separator between two numbers of a kind belongs to them.
void join_numbers_at_separators(const LevelLine& line);

/// "$5", "5%": terminators beside a number belong to it.
void join_terminators_to_numbers(const LevelLine& line);

/// "12 500": neutrals between two numbers belong to them.
void join_numbers_over_neutrals(const LevelLine& line);

/// Numbers become strong left-to-right; what else is weak, except Arabic numbers, becomes neutral.
void settle_remaining_weak_types(const LevelLine& line);

/// Neutrals take the direction of the strong types on both sides where these agree, else one by what they are.
/// `next_strong` is a work buffer of line.length entries.
void resolve_neutrals(const LevelLine& line, BidiType* next_strong);

/// Characters that run against their level go up to the next level of their direction.
void raise_implicit_levels(const LevelLine& line);

/// All of the rules; the work buffer as in resolve_neutrals.
void resolve_levels(const LevelLine& line, BidiType* next_strong);

}  // namespace corvanes
