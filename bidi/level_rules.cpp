#include "bidi/level_rules.h"

#include <algorithm>
#include <array>

namespace corvanes {
namespace {

/// The end of the run of units from `start` whose types are in the group.
template <class Group>
size_t run_end(const LevelLine& line, size_t start, Group group) {
    size_t end = start;
    while (end < line.length && group(line.types[end])) {
        ++end;
    }
    return end;
}

void set_types(const LevelLine& line, size_t start, size_t end, BidiType type) {
    for (size_t i = start; i < end; ++i) {
        line.types[i] = type;
    }
}

/// A table with one entry for each type.
template <class Value, class Rule>
constexpr std::array<Value, bidi_type_count> for_each_type(Rule rule) {
    std::array<Value, bidi_type_count> values{};
    for (size_t i = 0; i < values.size(); ++i) {
        values[i] = rule(static_cast<BidiType>(i));
    }
    return values;
}

constexpr size_t index_of(BidiType type) {
    return static_cast<size_t>(type);
}

constexpr BidiType settled_type(BidiType type) {
    if (type == BidiType::european_number) {
        return BidiType::left_to_right;
    }
    return IsWeakType(type) && type != BidiType::arabic_number ? BidiType::other_neutral : type;
}

constexpr Level raised_from_even(BidiType type) {
    return type == BidiType::right_to_left ? 1 : type == BidiType::arabic_number ? 2 : 0;
}

constexpr Level raised_from_odd(BidiType type) {
    return type == BidiType::left_to_right || type == BidiType::arabic_number ? 1 : 0;
}

/// The directions that neutrals at the base level take, for all neighbours and kinds.
class NeutralDirections {
  public:
    constexpr explicit NeutralDirections(bool left_to_right) : directions_{} {
        for (size_t previous = 0; previous < neighbour_count; ++previous) {
            for (size_t next = 0; next < neighbour_count; ++next) {
                for (size_t kind = 0; kind < kind_count; ++kind) {
                    directions_[previous][next][kind] =
                        neutral_direction({static_cast<BidiType>(previous), static_cast<BidiType>(next)},
                                          static_cast<NeutralKind>(kind), left_to_right ? 0 : 1, left_to_right);
                }
            }
        }
    }
    BidiType of(wchar_t neutral, BidiType previous, BidiType next) const {
        return directions_[index_of(previous)][index_of(next)][static_cast<size_t>(kind_of(neutral))];
    }

  private:
    static constexpr size_t neighbour_count = 3;
    static constexpr size_t kind_count = 4;
    static NeutralKind kind_of(wchar_t character);
    BidiType directions_[neighbour_count][neighbour_count][kind_count];
};

constexpr std::array<NeutralKind, 0x80> ascii_kinds() {
    std::array<NeutralKind, 0x80> kinds{};
    for (size_t character = 0; character < kinds.size(); ++character) {
        kinds[character] = neutral_kind(static_cast<wchar_t>(character));
    }
    return kinds;
}

NeutralKind NeutralDirections::kind_of(wchar_t character) {
    static constexpr auto kinds = ascii_kinds();
    // The last entry also stands for all characters beyond.
    static_assert(kinds.back() == NeutralKind::other);
    return kinds[std::min(static_cast<size_t>(character), kinds.size() - 1)];
}

/// What the rule of the first levels remembers. Above is the level next to the base level.
struct FirstLevelState {
    BidiType last_strong = BidiType::not_applicable;
    bool above = false;
    /// Where the next change of direction leads.
    bool next_above = true;

    constexpr size_t number() const {
        return static_cast<size_t>(last_strong) * 4 + (above ? 2 : 0) + (next_above ? 0 : 1);
    }
    static constexpr FirstLevelState numbered(size_t number) {
        return {static_cast<BidiType>(number / 4), (number & 2) != 0, (number & 1) == 0};
    }
    constexpr FirstLevelState after(BidiType type) const {
        if (IsNotApplicable(type)) {
            return {last_strong, false, next_above};
        }
        if (!IsStrongType(type) || type == last_strong) {
            return *this;
        }
        const bool first = IsNotApplicable(last_strong);
        return first ? FirstLevelState{type, above, next_above} : FirstLevelState{type, next_above, above};
    }
};

/// The same as a table, by states and types: no branch to mispredict at each change of direction.
class FirstLevelSteps {
  public:
    /// A state is known by where its steps begin.
    struct Step {
        std::uint8_t state;
        std::uint8_t level;
    };

    constexpr explicit FirstLevelSteps(Level base) : steps_{} {
        for (size_t state = 0; state < state_count; ++state) {
            for (size_t i = 0; i < bidi_type_count; ++i) {
                const auto type = static_cast<BidiType>(i);
                const FirstLevelState after = FirstLevelState::numbered(state).after(type);
                const int level = base + (IsStrongType(type) && after.above ? 1 : 0);
                steps_[state * bidi_type_count + i] = {static_cast<std::uint8_t>(after.number() * bidi_type_count),
                                                       static_cast<std::uint8_t>(IsNotApplicable(type) ? 0 : level)};
            }
        }
    }
    Step from(size_t state, BidiType type) const { return steps_[state + index_of(type)]; }

  private:
    static constexpr size_t state_count = 12;
    Step steps_[state_count * bidi_type_count];
};

void find_next_strong_types(const LevelLine& line, BidiType* next_strong) {
    BidiType next = BidiType::not_applicable;
    for (size_t i = line.length; i-- > 0;) {
        next = IsStrongType(line.types[i]) ? line.types[i] : next;
        next_strong[i] = next;
    }
}

}  // namespace

size_t cut_into_units(const wchar_t* text, size_t length, const CharacterTypes& character_types, std::uint32_t* starts,
                      BidiType* types) {
    // The type that the next character must have to continue a unit. A unit by itself is continued by nothing.
    static constexpr auto continued_by = for_each_type<int>([](BidiType type) {
        const bool joins_its_like = IsStrongType(type) || type == BidiType::european_number;
        return joins_its_like ? static_cast<int>(type) : -1;
    });
    // Every character writes its unit, which only stays when it does not continue the one before: no branch to
    // mispredict at the ends of words.
    size_t count = 0;
    int continuing = -1;
    for (size_t i = 0; i < length; ++i) {
        const BidiType type = character_types.of(text[i]);
        starts[count] = static_cast<std::uint32_t>(i);
        types[count] = type;
        count += static_cast<int>(type) != continuing ? 1 : 0;
        continuing = continued_by[index_of(type)];
    }
    starts[count] = static_cast<std::uint32_t>(length);
    types[count] = BidiType::not_applicable;
    return count;
}

void assign_first_levels(const LevelLine& line) {
    static constexpr FirstLevelSteps steps_by_line[] = {FirstLevelSteps(1), FirstLevelSteps(0)};
    const FirstLevelSteps& steps = steps_by_line[line.left_to_right ? 1 : 0];
    size_t state = 0;
    for (size_t i = 0; i < line.length; ++i) {
        const FirstLevelSteps::Step step = steps.from(state, line.types[i]);
        line.levels[i] = step.level;
        state = step.state;
    }
}

void join_numbers_at_separators(const LevelLine& line) {
    for (size_t i = 1; i + 1 < line.length; ++i) {
        const bool common = line.types[i] == BidiType::common_separator;
        if (!common && line.types[i] != BidiType::european_separator) {
            continue;
        }
        const BidiType before = line.types[i - 1];
        const bool number = before == BidiType::european_number || (common && before == BidiType::arabic_number);
        if (number && before == line.types[i + 1]) {
            line.types[i] = before;
        }
    }
}

void join_terminators_to_numbers(const LevelLine& line) {
    const auto is_terminator = [](BidiType type) { return type == BidiType::european_terminator; };
    for (size_t i = 0; i < line.length; ++i) {
        if (is_terminator(line.types[i])) {
            const size_t end = run_end(line, i, is_terminator);
            const bool after_number = i > 0 && line.types[i - 1] == BidiType::european_number;
            if (after_number || line.types[end] == BidiType::european_number) {
                set_types(line, i, end, BidiType::european_number);
            }
            i = end - 1;
        }
    }
}

void join_numbers_over_neutrals(const LevelLine& line) {
    for (size_t i = 1; i < line.length; ++i) {
        if (line.types[i - 1] == BidiType::european_number && IsNeutralType(line.types[i])) {
            const size_t end = run_end(line, i, IsNeutralType);
            if (line.types[end] == BidiType::european_number) {
                set_types(line, i, end, BidiType::european_number);
            }
            i = end - 1;
        }
    }
}

void settle_remaining_weak_types(const LevelLine& line) {
    static constexpr auto settled = for_each_type<BidiType>(settled_type);
    for (size_t i = 0; i < line.length; ++i) {
        line.types[i] = settled[index_of(line.types[i])];
    }
}

void resolve_neutrals(const LevelLine& line, BidiType* next_strong) {
    static constexpr NeutralDirections directions_by_line[] = {NeutralDirections(false), NeutralDirections(true)};
    const NeutralDirections& directions = directions_by_line[line.left_to_right ? 1 : 0];
    find_next_strong_types(line, next_strong);
    BidiType previous = BidiType::not_applicable;
    BidiType last_resolved = BidiType::not_applicable;
    for (size_t i = 0; i < line.length; ++i) {
        const BidiType type = line.types[i];
        const bool neutral = IsNeutralType(type);
        // All of a neutral run sees the same neighbours. Arabic numbers do not end it, nor count as one.
        previous = neutral || type == BidiType::arabic_number ? previous : IsStrongType(type) ? type : last_resolved;
        line.types[i] = neutral ? directions.of(line.character(i), previous, next_strong[i]) : type;
        last_resolved = IsStrongType(line.types[i]) ? line.types[i] : last_resolved;
    }
}

void raise_implicit_levels(const LevelLine& line) {
    static constexpr std::array<std::array<Level, bidi_type_count>, 2> raised = {for_each_type<Level>(raised_from_even),
                                                                                 for_each_type<Level>(raised_from_odd)};
    for (size_t i = 0; i < line.length; ++i) {
        Level& level = line.levels[i];
        level += raised[level & 1][index_of(line.types[i])];
    }
}

void resolve_levels(const LevelLine& line, BidiType* next_strong) {
    assign_first_levels(line);
    join_numbers_at_separators(line);
    join_terminators_to_numbers(line);
    join_numbers_over_neutrals(line);
    settle_remaining_weak_types(line);
    resolve_neutrals(line, next_strong);
    raise_implicit_levels(line);
}

}  // namespace corvanes
