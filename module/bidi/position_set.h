// Sets of positions of a line, held 64 to a word, so that a rule looks at 64 characters at once.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace corvanes {

/// Position p is bit p % 64 of word p / 64. Beyond the words at either end the set is empty.
class PositionSet {
  public:
    using Word = std::uint64_t;
    static constexpr size_t word_size = 64;

    static size_t words_for(size_t length) { return (length + word_size - 1) / word_size; }

    /// Makes room for positions, whose membership is unspecified afterwards. Never gives memory back.
    void resize(size_t words) {
        if (words_.size() < words + 2) {
            words_.resize(words + 2);
        }
        words_[words + 1] = 0;
    }
    void clear(size_t words) { words_.assign(words + 2, 0); }

    Word& operator[](size_t word) { return words_[word + 1]; }
    Word operator[](size_t word) const { return words_[word + 1]; }
    bool contains(size_t position) const { return ((*this)[position / word_size] >> position % word_size & 1) != 0; }
    void insert(size_t position) { (*this)[position / word_size] |= Word{1} << position % word_size; }

    /// The positions of one word that come directly behind, or directly before, a member.
    Word behind(size_t word) const { return words_[word + 1] << 1 | words_[word] >> (word_size - 1); }
    Word before(size_t word) const { return words_[word + 1] >> 1 | words_[word + 2] << (word_size - 1); }

  private:
    // The words of the set, with an empty word at each end.
    std::vector<Word> words_ = std::vector<Word>(2);
};

inline PositionSet::Word lowest_member(PositionSet::Word word) {
    return word & (~word + 1);
}

/// 0 in an empty word.
inline PositionSet::Word highest_member(PositionSet::Word word) {
    return word == 0
               ? 0
               : PositionSet::Word{1} << (PositionSet::word_size - 1 - static_cast<size_t>(__builtin_clzll(word)));
}

inline size_t lowest_position(PositionSet::Word word) {
    return static_cast<size_t>(__builtin_ctzll(word));
}

/// Calls `visit` with each member of the first words, in order.
template <class Visit>
void for_each_position(const PositionSet& set, size_t words, Visit visit) {
    for (size_t w = 0; w < words; ++w) {
        for (PositionSet::Word rest = set[w]; rest != 0; rest &= rest - 1) {
            visit(w * PositionSet::word_size + lowest_position(rest));
        }
    }
}

/// Of the runs of `group` in one word, those that begin at a seed. A seed outside of the group has no effect; one
/// inside must be at the beginning of a run.
constexpr PositionSet::Word runs_from(PositionSet::Word group, PositionSet::Word seeds) {
    // Adding 1 to a run of ones at its begin turns it to zeros.
    return group & ~(group + (seeds & group));
}

/// Of each run of `group` in one word, the positions at or below a seed in that run.
constexpr PositionSet::Word runs_down_to(PositionSet::Word group, PositionSet::Word seeds) {
    PositionSet::Word reached = seeds & group;
    for (unsigned distance = 1; distance < PositionSet::word_size; distance *= 2) {
        reached |= group & reached >> distance;
        group &= group >> distance;
    }
    return reached;
}

/// The runs of `group` directly behind a member of `source`, which has no members in common with the group.
inline void find_runs_behind(const PositionSet& group, const PositionSet& source, size_t words, PositionSet& found) {
    PositionSet::Word carried = 0;
    for (size_t w = 0; w < words; ++w) {
        found[w] = runs_from(group[w], source.behind(w) | carried);
        carried = found[w] >> (PositionSet::word_size - 1);
    }
}

/// The runs of `group` directly before a member of `source`.
inline void find_runs_before(const PositionSet& group, const PositionSet& source, size_t words, PositionSet& found) {
    PositionSet::Word carried = 0;
    for (size_t w = words; w-- > 0;) {
        found[w] = runs_down_to(group[w], source.before(w) | carried);
        carried = found[w] << (PositionSet::word_size - 1);
    }
}

}  // namespace corvanes
