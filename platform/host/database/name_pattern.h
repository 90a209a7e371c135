// Wildcard patterns for names.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// A pattern as acutWcMatch describes it. Case counts: fold pattern and text alike where it must not.
class NamePattern {
  public:
    explicit NamePattern(std::wstring_view pattern);

    /// At most the product of the text's and the pattern's lengths in steps.
    bool matches(std::wstring_view text) const;

  private:
    struct Token {
        enum Kind { one_of, any_character, any_run, digit, letter, other };
        Kind kind = one_of;
        bool negated = false;
        std::wstring ranges;  ///< of one_of: pairs of a first and a last character
        bool accepts(wchar_t character) const;
    };
    struct Alternative {
        bool negated = false;
        std::vector<Token> tokens;
        bool matches(std::wstring_view text) const;
    };
    static Token read_set(std::wstring_view pattern, size_t& at);
    static Token read_token(std::wstring_view pattern, size_t& at);

    std::vector<Alternative> alternatives_;
};

}  // namespace host
