// The keywords that a question accepts besides its ordinary answer.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// Keywords as in "Load Unload eXit": the capitals of each are its shortest form, and any longer beginning (or, when
/// the capitals are not the beginning, the capitals themselves or the whole word) is accepted, in any case.
class Keywords {
  public:
    Keywords() = default;
    explicit Keywords(std::wstring_view separated_by_blanks);

    bool empty() const { return words_.empty(); }
    /// The whole keyword that the text stands for, or an empty text.
    std::wstring match(std::wstring_view typed) const;

  private:
    std::vector<std::wstring> words_;
};

}  // namespace host
