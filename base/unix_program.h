// Programs of the system below Wine.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace base {

/// The system's own name of a file; empty when it has none. Nothing where there is no Wine.
std::optional<std::string> unix_name(const std::filesystem::path& path);

/// Runs a program of the system below to its end, and gives its exit status. The first argument is the program's path.
/// Nothing when it cannot be started, and where there is no Wine.
std::optional<int> run_unix_program(std::vector<std::string> arguments);

}  // namespace base
