// Mode, owner and group of files under Wine.
#pragma once

#include <filesystem>
#include <optional>

#include "base/replace_file_system.h"

namespace base {

/// Whether Wine's server, which makes the files, has the same umask as this process: then a new file needs nothing.
/// Known from the first one on that take_over_under_wine() was called for. False where there is no Wine.
bool new_files_have_the_right_mode();

/// Gives a new file the mode, owner and group of the target, or what the umask asks when there is no target. Windows
/// has no words for them, and what Wine makes of them (access lists) loses most: so the tools of the system below do
/// it. Returns nothing where there is no Wine.
std::optional<Takeover> take_over_under_wine(const std::filesystem::path& target, const std::filesystem::path& file);

}  // namespace base
