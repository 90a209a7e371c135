// Names of commands as they are typed: with their prefixes, completed, or the nearest to a misspelt one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace host {

/// The name of a command, and what the prefixes say that were typed before it.
struct CommandName {
    std::wstring name;         ///< without prefixes and outer blanks; empty when nothing but prefixes was typed
    bool transparent = false;  ///< "'": to run while another command waits for input
    bool built_in = false;     ///< ".": the host's own command, whatever modules have registered
    bool global_only = false;  ///< "_": the name is a global one
};

/// Takes prefixes in any order, each at most once.
CommandName parse_command_name(std::wstring_view typed);

/// What Tab makes of a line: the first of `names` (in order) that begins as `typed` does, in any case; prefixes ("'",
/// "_", ".") stay. Further Tabs give the next ones and come back to the first; `shown` is what the Tab before gave, or
/// empty. Unchanged where nothing begins so.
std::wstring completed_name(std::wstring_view typed, std::wstring_view shown, std::vector<std::wstring> names);

/// The name that differs from `typed` by the fewest letters (left out, added, changed, or two swapped), without regard
/// to case; empty when more than a third of its letters differ. Never that name itself.
std::wstring nearest_name(std::wstring_view typed, const std::vector<std::wstring>& names);

}  // namespace host
