#include "platform/host/database/name_pattern.h"

#include <algorithm>
#include <cwctype>

#include "acutads.h"

namespace host {

NamePattern::NamePattern(std::wstring_view pattern) : alternatives_(1) {
    for (size_t at = 0; at < pattern.size();) {
        Alternative& current = alternatives_.back();
        if (pattern[at] == L',') {
            alternatives_.emplace_back();
            ++at;
        } else if (pattern[at] == L'~' && current.tokens.empty() && !current.negated) {
            current.negated = true;
            ++at;
        } else {
            current.tokens.push_back(read_token(pattern, at));
        }
    }
}

NamePattern::Token NamePattern::read_token(std::wstring_view pattern, size_t& at) {
    if (pattern[at] == L'[' && pattern.find(L']', at + 1) != std::wstring_view::npos) {
        return read_set(pattern, at);
    }
    Token token;
    switch (const wchar_t character = pattern[at++]) {
        case L'*':
            token.kind = Token::any_run;
            break;
        case L'?':
            token.kind = Token::any_character;
            break;
        case L'#':
            token.kind = Token::digit;
            break;
        case L'@':
            token.kind = Token::letter;
            break;
        case L'.':
            token.kind = Token::other;
            break;
        case L'`':
            token.ranges.assign(2, at < pattern.size() ? pattern[at++] : character);
            break;
        default:
            token.ranges.assign(2, character);
            break;
    }
    return token;
}

NamePattern::Token NamePattern::read_set(std::wstring_view pattern, size_t& at) {
    Token token;
    ++at;
    if (pattern[at] == L'~') {
        token.negated = true;
        ++at;
    }
    while (at < pattern.size() && pattern[at] != L']') {
        const wchar_t first = pattern[at] == L'`' && at + 1 < pattern.size() ? pattern[++at] : pattern[at];
        ++at;
        const bool range = at + 1 < pattern.size() && pattern[at] == L'-' && pattern[at + 1] != L']';
        token.ranges += first;
        token.ranges += range ? pattern[at + 1] : first;
        at += range ? 2 : 0;
    }
    at += at < pattern.size() ? 1 : 0;
    return token;
}

bool NamePattern::Token::accepts(wchar_t character) const {
    switch (kind) {
        case digit:
            return character >= L'0' && character <= L'9';
        case letter:
            return std::iswalpha(character) != 0;
        case other:
            return std::iswalnum(character) == 0;
        case any_character:
        case any_run:
            return true;
        case one_of:
            break;
    }
    bool within = false;
    for (size_t i = 0; i + 1 < ranges.size(); i += 2) {
        within = within || (ranges[i] <= character && character <= ranges[i + 1]);
    }
    return within != negated;
}

bool NamePattern::Alternative::matches(std::wstring_view text) const {
    size_t token = 0;
    size_t at = 0;
    size_t run = tokens.size();  // the last "*" that was passed, and how far its run reaches
    size_t run_end = 0;
    while (at < text.size()) {
        if (token < tokens.size() && tokens[token].kind == Token::any_run) {
            run = token++;
            run_end = at;
        } else if (token < tokens.size() && tokens[token].accepts(text[at])) {
            ++token;
            ++at;
        } else if (run < tokens.size()) {
            token = run + 1;
            at = ++run_end;
        } else {
            return negated;
        }
    }
    const bool rest_is_empty = std::all_of(tokens.begin() + static_cast<std::ptrdiff_t>(token), tokens.end(),
                                           [](const Token& rest) { return rest.kind == Token::any_run; });
    return rest_is_empty != negated;
}

bool NamePattern::matches(std::wstring_view text) const {
    return std::any_of(alternatives_.begin(), alternatives_.end(),
                       [text](const Alternative& alternative) { return alternative.matches(text); });
}

}  // namespace host

int acutWcMatch(const ACHAR* text, const ACHAR* pattern) {
    return text != nullptr && pattern != nullptr && host::NamePattern(pattern).matches(text) ? 1 : 0;
}
