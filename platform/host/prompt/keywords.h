// The words that answer a question: its keywords, and the options that its prompt offers in brackets.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// What a question accepts besides its ordinary answer, as in "Load Unload eXit": the capitals of each are its shortest
/// form, and any longer beginning (or, when the capitals are not the beginning, the capitals themselves or the whole
/// word) is accepted, in any case.
class Keywords {
  public:
    Keywords() = default;
    explicit Keywords(std::wstring_view separated_by_blanks);

    /// The whole keyword that the text stands for, or an empty text.
    std::wstring match(std::wstring_view typed) const;

  private:
    std::vector<std::wstring> words_;
};

/// A word of a prompt that may be given as the answer.
struct PromptOption {
    size_t begin;   ///< the place of its first letter in the prompt
    size_t length;  ///< in letters
    bool operator==(const PromptOption&) const = default;
};

/// The words in the first brackets of a prompt, as in "[All/Window]", in their order; none without words there.
std::vector<PromptOption> prompt_options(std::wstring_view prompt);

}  // namespace host
