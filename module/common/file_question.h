// The question that asks the user for a file, through the host.
#pragma once

#include <optional>
#include <string>

namespace corvanes {

enum class FileQuestion {
    new_file = 1,       ///< the host asks before an existing file is replaced
    existing_file = 2,  ///< an existing file is chosen; no typing instead
};

/// Asks for a file; nothing when the user cancelled. `extension` has no dot.
std::optional<std::wstring> ask_for_file(const wchar_t* title, const std::wstring& proposal, const wchar_t* extension,
                                         FileQuestion question);

}  // namespace corvanes
