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

/// A word of the prompt, to be given as the answer.
struct PromptOption {
    size_t begin;
    size_t length;
    bool operator==(const PromptOption&) const = default;
};

/// In the order in which they stand; none where the brackets hold no words.
std::vector<PromptOption> prompt_options(std::wstring_view prompt);

}  // namespace host
