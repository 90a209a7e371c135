// The question for a file name: the system's dialog asks a person, a prompt asks a script.
#pragma once

#include <optional>
#include <string>

namespace host {

struct FileQuestion {
    std::wstring title;
    std::wstring proposal;    ///< empty for none
    std::wstring extensions;  ///< without dots, separated by ";"; the first is added to a name that has none
    bool new_file = false;    ///< the file is to be written; an existing one is replaced only after a question
    bool any_extension = false;
};

/// Asks for a file and gives its full path; nothing when the user gave up. The dialog begins in the proposal's folder,
/// else in the drawing's; a proposal that no file can have is left out. FILEDIA 0 (as in scripts), and an answer that
/// is typed already, ask at the command line; there Return takes the proposal.
std::optional<std::wstring> ask_file_name(const FileQuestion& question);

}  // namespace host
