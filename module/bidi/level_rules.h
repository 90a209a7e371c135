// The rules that give each character of a line its embedding level. They run in the order of their declarations.
#pragma once

#include <vector>

#include "bidi/line_classes.h"
#include "bidi/neutral_direction.h"

namespace corvanes {

/// Characters of one level: `start` to start + length - 1 of the logical text.
struct LevelRun {
    std::uint32_t start;
    std::uint32_t length;
    Level level;

    bool right_to_left() const { return is_right_to_left(level); }
};

/// A line on its way through the rules. The buffers are kept from line to line.
///
/// A strong character stands one level above the base level when its direction is not that of the first strong one; all
/// others stand at the base level, or at 0 when they have no type. So the rules need no levels: they move characters
/// from one set of `classes` to another.
class LevelRules {
  public:
    LineClasses classes;
    /// The base level is 0 in a left-to-right line, else 1.
    bool left_to_right_line = true;

    /// Runs all rules over the line whose classes and direction are set.
    void resolve();

    /// The levels that came out, each `level_offset` higher.
    void find_runs(Level level_offset, std::vector<LevelRun>& runs);
    /// The characters whose levels came out odd.
    const PositionSet& odd() const { return odd_; }

  private:
    /// Every change of strong direction toggles between two levels; the first strong run keeps the base level, whatever
    /// its direction. A character without a type gets level 0 and takes the line back to the base level.
    void assign_first_levels();
    /// "1.5", "1+2": one separator between two numbers of a kind belongs to them.
    void join_numbers_at_separators();
    /// "$5", "5%": terminators beside a number belong to it.
    void join_terminators_to_numbers();
    /// "12 500": neutrals between two numbers belong to them.
    void join_numbers_over_neutrals();
    /// Numbers become strong left-to-right; all other weak characters except Arabic numbers become neutral.
    void settle_remaining_weak_types();
    /// Neutrals take the direction of the strong types on both sides when these agree, else one that depends on their
    /// kind.
    void resolve_neutrals();
    /// Characters that run against their level go up to the next level of their direction.
    void raise_implicit_levels();

    using Word = PositionSet::Word;
    /// What lies in the words before and decides on a neutral's direction.
    struct Passed;

    Word strong(size_t word) const { return classes.left_to_right[word] | classes.right_to_left[word]; }
    void cut_levels_behind_untyped();
    void find_next_directions();
    Word resolve_word(size_t word, Passed& passed) const;
    /// The positions of a word whose level is not that of the position before.
    Word level_changes(size_t word) const;
    /// Fills run_starts_ and tells how many runs there are.
    size_t find_run_starts();

    /// Strong characters above the base level.
    PositionSet above_;
    /// Positions from which the next strong character is left-to-right, and right-to-left.
    PositionSet next_left_to_right_;
    PositionSet next_right_to_left_;
    /// Scratch sets of the rules: neutrals that become right-to-left, numbers that other characters join.
    PositionSet found_;
    PositionSet found_before_;
    // The two bits of each level, since no level is higher than 3.
    PositionSet odd_;
    PositionSet two_or_three_;
    std::vector<std::uint32_t> run_starts_;
};

}  // namespace corvanes
