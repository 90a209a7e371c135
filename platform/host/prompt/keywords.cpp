#include "platform/host/prompt/keywords.h"

#include <algorithm>

#include "base/case_folding.h"

namespace host {

namespace {

bool is_capital(wchar_t character) {
    return base::to_lower(character) != character || (character >= L'0' && character <= L'9');
}

std::wstring capitals_of(const std::wstring& word) {
    std::wstring capitals;
    for (const wchar_t character : word) {
        if (is_capital(character)) {
            capitals.push_back(character);
        }
    }
    return capitals.empty() ? word : capitals;
}

bool begins_with(std::wstring_view word, std::wstring_view beginning) {
    return beginning.size() <= word.size() &&
           base::compare_ignoring_case(word.substr(0, beginning.size()), beginning) == 0;
}

}  // namespace

Keywords::Keywords(std::wstring_view separated_by_blanks) {
    while (!separated_by_blanks.empty()) {
        const size_t blank = separated_by_blanks.find(L' ');
        if (blank != 0) {
            words_.emplace_back(separated_by_blanks.substr(0, blank));
        }
        separated_by_blanks.remove_prefix(blank == std::wstring_view::npos ? separated_by_blanks.size() : blank + 1);
    }
}

std::wstring Keywords::match(std::wstring_view typed) const {
    if (typed.empty()) {
        return {};
    }
    for (const std::wstring& word : words_) {
        const std::wstring capitals = capitals_of(word);
        const bool shortest = base::compare_ignoring_case(typed, capitals) == 0;
        const bool whole = base::compare_ignoring_case(typed, word) == 0;
        const bool beginning =
            begins_with(word, capitals) && typed.size() >= capitals.size() && begins_with(word, typed);
        if (shortest || whole || beginning) {
            return word;
        }
    }
    return {};
}

std::vector<PromptOption> prompt_options(std::wstring_view prompt) {
    std::vector<PromptOption> options;
    const size_t open = prompt.find(L'[');
    const size_t close = open == std::wstring_view::npos ? open : prompt.find(L']', open);
    if (close == std::wstring_view::npos) {
        return options;
    }
    for (size_t begin = open + 1; begin <= close;) {
        const size_t end = std::min(prompt.find(L'/', begin), close);
        if (end > begin) {
            options.push_back({begin, end - begin});
        }
        begin = end + 1;
    }
    return options;
}

}  // namespace host
