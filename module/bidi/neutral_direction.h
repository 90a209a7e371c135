// The direction that a neutral character takes between its neighbours.
#pragma once

#include "bidi/character_types.h"
#include "bidi/special_characters.h"

namespace corvanes {

/// Odd levels run from right to left.
using Level = std::uint16_t;

constexpr bool is_right_to_left(Level level) {
    return (level & 1) != 0;
}

/// The type that a level stands for when a separator takes its direction from one neighbour: R for odd and L for even
/// levels of a left-to-right line, and the other way round in a right-to-left line. The inversion in right-to-left
/// lines is intended: at its base level a full stop beside a Latin word at the end of a line stays with the word in
/// paragraphs of both directions.
constexpr BidiType LevelDirection(Level level, bool left_to_right) {
    return is_right_to_left(level) == left_to_right ? BidiType::right_to_left : BidiType::left_to_right;
}

/// The strong types around a run of neutrals; not_applicable at the end of the line.
struct StrongNeighbours {
    BidiType previous;
    BidiType next;
};

/// The direction of a separator or space between neighbours that do not agree.
constexpr BidiType separator_direction(StrongNeighbours neighbours, NeutralKind kind, Level level, bool left_to_right) {
    const bool has_previous = IsStrongType(neighbours.previous);
    const bool has_next = IsStrongType(neighbours.next);
    if (has_previous && has_next) {
        return is_right_to_left(level) ? BidiType::right_to_left : BidiType::left_to_right;
    }
    if (!has_previous && !has_next) {
        return BidiType::left_to_right;
    }
    const BidiType only = has_previous ? neighbours.previous : neighbours.next;
    return kind == NeutralKind::separator ? LevelDirection(level, left_to_right) : only;
}

/// The direction of any neutral at `level`.
constexpr BidiType neutral_direction(StrongNeighbours neighbours, NeutralKind kind, Level level, bool left_to_right) {
    if (IsStrongType(neighbours.previous) && neighbours.previous == neighbours.next) {
        return neighbours.previous;
    }
    if (kind == NeutralKind::separator || kind == NeutralKind::space) {
        return separator_direction(neighbours, kind, level, left_to_right);
    }
    const bool right_to_left = kind == NeutralKind::bracket && is_right_to_left(level);
    return right_to_left ? BidiType::right_to_left : BidiType::left_to_right;
}

}  // namespace corvanes
