// Reads words that are typed at the command line: keywords of questions, and names of commands.
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

/// The name of a command, and what the prefixes say that were typed before it.
struct CommandName {
    std::wstring name;         ///< without prefixes and outer blanks; empty when nothing but prefixes was typed
    bool transparent = false;  ///< "'": to run while another command waits for input
    bool built_in = false;     ///< ".": the host's own command, whatever modules have registered
    bool global_only = false;  ///< "_": the name is a global one
};

/// Takes prefixes in any order, each at most once.
CommandName parse_command_name(std::wstring_view typed);

}  // namespace host
