// Running programs of the Unix system that Wine runs on.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace base {

/// The Unix path of a file; empty when it has none. Nothing where there is no Wine.
std::optional<std::string> unix_name(const std::filesystem::path& path);

/// Runs a Unix program to its end, and returns its exit status. The first argument is the program's path. Nothing when
/// it cannot be started, and where there is no Wine.
std::optional<int> run_unix_program(std::vector<std::string> arguments);

}  // namespace base
