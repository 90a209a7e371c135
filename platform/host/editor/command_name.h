// A command as it is typed: the name and what its prefixes say.
#pragma once

#include <string>
#include <string_view>

namespace host {

struct CommandName {
    std::wstring name;         ///< without prefixes and outer blanks; empty when nothing but prefixes was typed
    bool transparent = false;  ///< "'": to run while another command waits for input
    bool built_in = false;     ///< ".": the host's own command, whatever modules have registered
    bool global_only = false;  ///< "_": the name is a global one
};

/// Takes prefixes in any order, each at most once.
CommandName parse_command_name(std::wstring_view typed);

}  // namespace host
