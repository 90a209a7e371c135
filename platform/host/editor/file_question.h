// Asking for a file name: the system's dialog for a person, a prompt for a script.
#pragma once

#include <optional>
#include <string>

namespace host {

struct FileQuestion {
    std::wstring title;
    std::wstring proposal;    ///< empty for none
    std::wstring extensions;  ///< without dots, separated by ";"; the first is added to a name that has none
    bool new_file = false;    ///< to be made: an existing file is replaced only after a question
    bool any_extension = false;
};

/// The full path, or nothing when the user gave up. The dialog begins in the proposal's folder, else in the drawing's;
/// a proposal that no file can have is left out. FILEDIA 0 (as in scripts), and an answer that is typed already, ask at
/// the command line; there Return takes the proposal.
std::optional<std::wstring> ask_file_name(const FileQuestion& question);

}  // namespace host
