#include "bidi/level_rules.h"

namespace corvanes {
namespace {

using Word = PositionSet::Word;

/// Whether the last member of `set` is one of `subset`; `otherwise` when the set is empty.
bool last_is_in(Word set, Word subset, bool otherwise) {
    return set == 0 ? otherwise : (subset & highest_member(set)) != 0;
}

Word below(Word member) {
    return member - 1;
}

/// The neutrals of one word, grouped by what decides on their directions.
struct Neutrals {
    Word previous_left_to_right;
    Word previous_right_to_left;
    Word next_left_to_right;
    Word next_right_to_left;
    Word bracket;
    Word space;
    Word separator;
};

/// The neutrals of the word that neutral_direction, at the base level, makes right-to-left.
constexpr Word right_to_left_neutrals(const Neutrals& neutrals, bool left_to_right_line) {
    const Neutrals& n = neutrals;
    const Word between_right_to_left = n.previous_right_to_left & n.next_right_to_left;
    const Word between_left_to_right = n.previous_left_to_right & n.next_left_to_right;
    const Word between_unlike =
        (n.previous_left_to_right & n.next_right_to_left) | (n.previous_right_to_left & n.next_left_to_right);
    const Word follows_line = (between_unlike & (n.space | n.separator)) | n.bracket;
    const Word has_previous = n.previous_left_to_right | n.previous_right_to_left;
    const Word has_next = n.next_left_to_right | n.next_right_to_left;
    const Word follows_only_neighbour =
        n.space & ((n.previous_right_to_left & ~has_next) | (n.next_right_to_left & ~has_previous));
    const Word by_line = left_to_right_line ? 0 : follows_line;
    return between_right_to_left | (~between_left_to_right & (by_line | follows_only_neighbour));
}

constexpr bool follow_the_rule(StrongNeighbours neighbours, NeutralKind kind, bool left_to_right_line) {
    const Neutrals one = {neighbours.previous == BidiType::left_to_right,
                          neighbours.previous == BidiType::right_to_left,
                          neighbours.next == BidiType::left_to_right,
                          neighbours.next == BidiType::right_to_left,
                          kind == NeutralKind::bracket,
                          kind == NeutralKind::space,
                          kind == NeutralKind::separator};
    const Level base = left_to_right_line ? 0 : 1;
    const BidiType direction = neutral_direction(neighbours, kind, base, left_to_right_line);
    return ((right_to_left_neutrals(one, left_to_right_line) & 1) != 0) == (direction == BidiType::right_to_left);
}

constexpr bool all_follow_the_rule() {
    constexpr BidiType neighbours[] = {BidiType::not_applicable, BidiType::left_to_right, BidiType::right_to_left};
    constexpr NeutralKind kinds[] = {NeutralKind::other, NeutralKind::bracket, NeutralKind::space,
                                     NeutralKind::separator};
    for (const BidiType previous : neighbours) {
        for (const BidiType next : neighbours) {
            for (const NeutralKind kind : kinds) {
                if (!follow_the_rule({previous, next}, kind, true) || !follow_the_rule({previous, next}, kind, false)) {
                    return false;
                }
            }
        }
    }
    return true;
}
static_assert(all_follow_the_rule());

}  // namespace

struct LevelRules::Passed {
    // The run of neutrals that reaches into the next word has this direction before it.
    Word left_to_right_before_run = 0;
    Word right_to_left_before_run = 0;
    /// The last character with a direction, once the neutrals have theirs.
    BidiType last_direction = BidiType::not_applicable;
};

void LevelRules::assign_first_levels() {
    above_.resize(classes.words);
    size_t first = 0;
    while (first < classes.words && strong(first) == 0) {
        above_[first++] = 0;
    }
    const bool left_to_right_first =
        first < classes.words && (lowest_member(strong(first)) & classes.left_to_right[first]) != 0;
    const PositionSet& other_direction = left_to_right_first ? classes.right_to_left : classes.left_to_right;
    for (size_t w = first; w < classes.words; ++w) {
        above_[w] = other_direction[w];
    }
    cut_levels_behind_untyped();
}

/// A character without a type that follows characters above the base level ends all toggling: everything behind it
/// stays at the base level.
void LevelRules::cut_levels_behind_untyped() {
    bool last_is_above = false;
    for (size_t w = 0; w < classes.words; ++w) {
        for (Word rest = classes.untyped[w]; rest != 0; rest &= rest - 1) {
            const Word passed = below(lowest_member(rest));
            if (last_is_in(strong(w) & passed, above_[w], last_is_above)) {
                above_[w] &= passed;
                while (++w < classes.words) {
                    above_[w] = 0;
                }
                return;
            }
        }
        last_is_above = last_is_in(strong(w), above_[w], last_is_above);
    }
}

void LevelRules::join_numbers_at_separators() {
    PositionSet& european = classes.european_number;
    PositionSet& arabic = classes.arabic_number;
    found_.resize(classes.words);
    found_before_.resize(classes.words);
    for (size_t w = 0; w < classes.words; ++w) {
        const Word separators = classes.european_separator[w] | classes.common_separator[w];
        found_[w] = separators & european.behind(w) & european.before(w);
        found_before_[w] = classes.common_separator[w] & arabic.behind(w) & arabic.before(w);
    }
    for (size_t w = 0; w < classes.words; ++w) {
        european[w] |= found_[w];
        arabic[w] |= found_before_[w];
        classes.european_separator[w] &= ~found_[w];
        classes.common_separator[w] &= ~(found_[w] | found_before_[w]);
    }
}

void LevelRules::join_terminators_to_numbers() {
    find_runs_behind(classes.european_terminator, classes.european_number, classes.words, found_);
    find_runs_before(classes.european_terminator, classes.european_number, classes.words, found_before_);
    for (size_t w = 0; w < classes.words; ++w) {
        const Word joined = found_[w] | found_before_[w];
        classes.european_number[w] |= joined;
        classes.european_terminator[w] &= ~joined;
    }
}

void LevelRules::join_numbers_over_neutrals() {
    find_runs_behind(classes.neutral, classes.european_number, classes.words, found_);
    find_runs_before(classes.neutral, classes.european_number, classes.words, found_before_);
    for (size_t w = 0; w < classes.words; ++w) {
        const Word joined = found_[w] & found_before_[w];
        classes.european_number[w] |= joined;
        classes.neutral[w] &= ~joined;
    }
}

void LevelRules::settle_remaining_weak_types() {
    for (size_t w = 0; w < classes.words; ++w) {
        classes.left_to_right[w] |= classes.european_number[w];
        classes.neutral[w] |=
            classes.european_separator[w] | classes.european_terminator[w] | classes.common_separator[w];
    }
}

void LevelRules::find_next_directions() {
    next_left_to_right_.resize(classes.words);
    next_right_to_left_.resize(classes.words);
    Word carried = 0;
    bool strong_passed = false;
    for (size_t w = classes.words; w-- > 0;) {
        const Word here = strong(w);
        const Word has_next = strong_passed ? ~Word{0} : here == 0 ? 0 : below(highest_member(here));
        next_right_to_left_[w] = runs_down_to(~here, classes.right_to_left.before(w) | carried);
        next_left_to_right_[w] = has_next & ~next_right_to_left_[w];
        carried = next_right_to_left_[w] << (PositionSet::word_size - 1);
        strong_passed = strong_passed || here != 0;
    }
}

PositionSet::Word LevelRules::resolve_word(size_t w, Passed& passed) const {
    // All neutrals of a run have the same neighbours. Arabic numbers neither end a run nor count as neighbours.
    const Word runs = classes.neutral[w] | classes.arabic_number[w];
    const Word with_direction = strong(w) | classes.neutral[w];
    Word left_before = classes.left_to_right.behind(w) | passed.left_to_right_before_run;
    Word right_before = classes.right_to_left.behind(w) | passed.right_to_left_before_run;
    // Before the characters without a type there may be another run of neutrals, which has its direction already.
    Word behind_untyped = runs & classes.untyped.behind(w);
    Neutrals neutrals = {.previous_left_to_right = 0,
                         .previous_right_to_left = 0,
                         .next_left_to_right = next_left_to_right_[w],
                         .next_right_to_left = next_right_to_left_[w],
                         .bracket = classes.bracket[w],
                         .space = classes.space[w],
                         .separator = classes.separator[w]};
    for (;;) {
        neutrals.previous_left_to_right = runs_from(runs, left_before);
        neutrals.previous_right_to_left = runs_from(runs, right_before);
        const Word resolved = classes.neutral[w] & right_to_left_neutrals(neutrals, left_to_right_line);
        const Word right_to_left = classes.right_to_left[w] | resolved;
        const Word start = lowest_member(behind_untyped);
        const Word before = start == 0 ? with_direction : with_direction & below(start);
        const bool known = before != 0 || !IsNotApplicable(passed.last_direction);
        const bool right = last_is_in(before, right_to_left, passed.last_direction == BidiType::right_to_left);
        if (start == 0) {
            passed.left_to_right_before_run = neutrals.previous_left_to_right >> (PositionSet::word_size - 1);
            passed.right_to_left_before_run = neutrals.previous_right_to_left >> (PositionSet::word_size - 1);
            if (known) {
                passed.last_direction = right ? BidiType::right_to_left : BidiType::left_to_right;
            }
            return resolved;
        }
        (right ? right_before : left_before) |= known ? start : 0;
        behind_untyped &= ~start;
    }
}

void LevelRules::resolve_neutrals() {
    find_next_directions();
    Passed passed;
    for (size_t w = 0; w < classes.words; ++w) {
        found_[w] = resolve_word(w, passed);
    }
    for (size_t w = 0; w < classes.words; ++w) {
        classes.right_to_left[w] |= found_[w];
        classes.left_to_right[w] |= classes.neutral[w] & ~found_[w];
    }
}

void LevelRules::raise_implicit_levels() {
    odd_.resize(classes.words);
    two_or_three_.resize(classes.words);
    for (size_t w = 0; w < classes.words; ++w) {
        const Word left_to_right = classes.left_to_right[w];
        const Word right_to_left = classes.right_to_left[w];
        odd_[w] = right_to_left;
        two_or_three_[w] =
            classes.arabic_number[w] |
            (left_to_right_line ? left_to_right & above_[w] : left_to_right | (right_to_left & above_[w]));
    }
}

void LevelRules::resolve() {
    assign_first_levels();
    join_numbers_at_separators();
    join_terminators_to_numbers();
    join_numbers_over_neutrals();
    settle_remaining_weak_types();
    resolve_neutrals();
    raise_implicit_levels();
}

PositionSet::Word LevelRules::level_changes(size_t word) const {
    return (odd_[word] ^ odd_.behind(word)) | (two_or_three_[word] ^ two_or_three_.behind(word));
}

size_t LevelRules::find_run_starts() {
    if (run_starts_.size() <= classes.length) {
        run_starts_.resize(classes.length + 1);
    }
    std::uint32_t* start = run_starts_.data();
    for (size_t w = 0; w < classes.words; ++w) {
        const Word start_of_line = w == 0 ? 1 : 0;
        for (Word rest = level_changes(w) | start_of_line; rest != 0; rest &= rest - 1) {
            *start++ = static_cast<std::uint32_t>(w * PositionSet::word_size + lowest_position(rest));
        }
    }
    const auto count = static_cast<size_t>(start - run_starts_.data());
    // Positions behind the line have level 0, so the line's end may look like a change of level.
    return count > 0 && start[-1] == classes.length ? count - 1 : count;
}

void LevelRules::find_runs(Level level_offset, std::vector<LevelRun>& runs) {
    const size_t count = find_run_starts();
    run_starts_[count] = static_cast<std::uint32_t>(classes.length);
    runs.resize(count);
    for (size_t i = 0; i < count; ++i) {
        const std::uint32_t start = run_starts_[i];
        const unsigned level = (odd_.contains(start) ? 1U : 0U) + (two_or_three_.contains(start) ? 2U : 0U);
        runs[i] = {start, run_starts_[i + 1] - start, static_cast<Level>(level + level_offset)};
    }
}

}  // namespace corvanes
