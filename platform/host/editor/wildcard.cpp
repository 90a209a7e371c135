#include "platform/host/editor/wildcard.h"

#include <cstddef>

namespace host {

bool matches_wildcard(std::wstring_view pattern, std::wstring_view text) {
    constexpr size_t none = std::wstring_view::npos;
    size_t at = 0;
    size_t star = none;
    size_t resume = 0;
    for (size_t position = 0; position < text.size();) {
        if (at < pattern.size() && pattern[at] == L'*') {
            star = at++;
            resume = position;
        } else if (at < pattern.size() && pattern[at] == text[position]) {
            ++at;
            ++position;
        } else if (star != none) {
            at = star + 1;
            position = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', at) == none;
}

}  // namespace host
