// A slow and plain reference for reordering: the rules, written out character by character. The fast implementation
// must give the same.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include "bidi/level_rules.h"
#include "bidi/type_search.h"

struct PlainLine {
    std::wstring visual;
    std::vector<std::uint32_t> map;
    std::vector<int> levels;
};

class PlainReordering {
  public:
    PlainReordering(const corvanes::CharacterTypes& types, const std::wstring& text, bool left_to_right)
        : text_(text), n_(static_cast<int>(text.size())), base_(left_to_right ? 0 : 1), left_to_right_(left_to_right) {
        for (const wchar_t character : text) {
            types_.push_back(types.of(character));
        }
        types_.push_back(T::not_applicable);
        levels_.resize(text.size());
    }

    PlainLine reorder() {
        first_levels();
        separators();
        join_runs([](T type) { return type == T::european_terminator; }, true);
        join_runs(corvanes::IsNeutralType, false);
        settle();
        neutrals();
        implicit_levels();
        return reverse();
    }

  private:
    using T = corvanes::BidiType;

    void first_levels() {
        std::vector<int> stack;
        T last = T::not_applicable;
        int current = base_;
        for (int i = 0; i < n_; ++i) {
            if (corvanes::IsStrongType(types_[i])) {
                if (last != T::not_applicable && types_[i] != last) {
                    const int next = stack.empty() ? current + 1 : stack.back();
                    stack.assign(1, current);
                    current = next;
                }
                last = types_[i];
                levels_[i] = current;
            } else if (types_[i] == T::not_applicable) {
                levels_[i] = 0;
                current = base_;
            } else {
                levels_[i] = base_;
            }
        }
    }

    void separators() {
        for (int i = 1; i + 1 < n_; ++i) {
            const bool between_en = types_[i - 1] == T::european_number && types_[i + 1] == T::european_number;
            const bool between_an = types_[i - 1] == T::arabic_number && types_[i + 1] == T::arabic_number;
            if ((types_[i] == T::european_separator || types_[i] == T::common_separator) && between_en) {
                types_[i] = T::european_number;
            } else if (types_[i] == T::common_separator && between_an) {
                types_[i] = T::arabic_number;
            }
        }
    }

    template <class Group>
    void join_runs(Group group, bool either_side) {
        for (int i = 0; i < n_; ++i) {
            int end = i;
            while (end < n_ && group(types_[end])) {
                ++end;
            }
            const bool before = i > 0 && types_[i - 1] == T::european_number;
            const bool after = types_[end] == T::european_number;
            if (end > i && (either_side ? before || after : before && after)) {
                std::fill(types_.begin() + i, types_.begin() + end, T::european_number);
                i = end - 1;
            }
        }
    }

    void settle() {
        for (T& type : types_) {
            if (type == T::european_number) {
                type = T::left_to_right;
            } else if (corvanes::IsWeakType(type) && type != T::arabic_number) {
                type = T::other_neutral;
            }
        }
    }

    void neutrals() {
        for (int i = 0; i < n_; ++i) {
            if (!corvanes::IsNeutralType(types_[i])) {
                continue;
            }
            T previous{};
            T next{};
            int position = i;
            const bool has_previous = corvanes::FindStrongType(types_.data(), n_, position, previous, false);
            position = i;
            const bool has_next = corvanes::FindStrongType(types_.data(), n_, position, next, true);
            for (; i < n_ && (corvanes::IsNeutralType(types_[i]) || types_[i] == T::arabic_number); ++i) {
                if (types_[i] != T::arabic_number) {
                    types_[i] = neutral(i, has_previous ? &previous : nullptr, has_next ? &next : nullptr);
                }
            }
            --i;
        }
    }

    T neutral(int i, const T* previous, const T* next) const {
        const T by_level = levels_[i] % 2 != 0 ? T::right_to_left : T::left_to_right;
        if (previous != nullptr && next != nullptr && *previous == *next) {
            return *previous;
        }
        if (corvanes::IsNeutralSeparator(text_[i])) {
            if (previous == nullptr && next == nullptr) {
                return T::left_to_right;
            }
            if (previous != nullptr && next != nullptr) {
                return by_level;
            }
            return text_[i] != L' ' ? corvanes::LevelDirection(static_cast<corvanes::Level>(levels_[i]), left_to_right_)
                                    : *(previous != nullptr ? previous : next);
        }
        return corvanes::IsMirrorChar(text_[i]) ? by_level : T::left_to_right;
    }

    void implicit_levels() {
        for (int i = 0; i < n_; ++i) {
            const bool number = types_[i] == T::arabic_number;
            if (levels_[i] % 2 != 0) {
                levels_[i] += types_[i] == T::left_to_right || number ? 1 : 0;
            } else {
                levels_[i] += types_[i] == T::right_to_left ? 1 : number ? 2 : 0;
            }
        }
    }

    PlainLine reverse() const {
        PlainLine line{text_, {}, levels_};
        for (int i = 0; i <= n_; ++i) {
            line.map.push_back(static_cast<std::uint32_t>(i));
        }
        int highest = 0;
        int lowest_odd = -1;
        for (const int level : levels_) {
            highest = std::max(highest, level);
            lowest_odd = level % 2 != 0 && (lowest_odd < 0 || level < lowest_odd) ? level : lowest_odd;
        }
        for (int level = highest; level >= lowest_odd; --level) {
            for (int i = 0; i < n_; ++i) {
                int end = i;
                while (end < n_ && levels_[end] >= level) {
                    ++end;
                }
                std::reverse(line.map.begin() + i, line.map.begin() + end);
                i = end > i ? end - 1 : i;
            }
        }
        if (!left_to_right_) {
            std::reverse(line.map.begin(), line.map.end() - 1);
        }
        for (int i = 0; i < n_; ++i) {
            const wchar_t character = text_[line.map[i]];
            line.visual[i] = !left_to_right_ && levels_[i] % 2 != 0 ? corvanes::GetMirrorChar(character) : character;
        }
        return line;
    }

    std::wstring text_;
    int n_;
    int base_;
    bool left_to_right_;
    std::vector<T> types_;
    std::vector<int> levels_;
};
