// The options that a prompt offers in brackets, as "[All/Window]".
#pragma once

#include <string_view>
#include <vector>

namespace host {

/// A word of the prompt, to be given as the answer.
struct PromptOption {
    size_t begin;
    size_t length;
    bool operator==(const PromptOption&) const = default;
};

/// In the order in which they stand; none where the brackets hold no words.
std::vector<PromptOption> prompt_options(std::wstring_view prompt);

}  // namespace host
