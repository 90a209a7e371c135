// Mode, owner and group of files under Wine.
#pragma once

#include <filesystem>
#include <optional>

#include "base/replace_file_system.h"

namespace base {

/// Whether Wine's server, which makes the files, has the same umask as this process: then a new file needs nothing.
/// It is unknown, and false, until take_over_under_wine() has been called for a first file. False where there is no
/// Wine.
bool new_files_have_the_right_mode();

/// Gives a new file the mode, owner and group of the target, or what the umask asks when there is no target. Windows
/// has no notion of them, and what Wine makes of them (access lists) loses most, so Unix tools do it. Returns nothing
/// where there is no Wine.
std::optional<Takeover> take_over_under_wine(const std::filesystem::path& target, const std::filesystem::path& file);

}  // namespace base
