// The size and SHA-256 sum of a file.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace base {

struct FileDigest {
    std::uint64_t size = 0;
    std::string sha256;  ///< hexadecimal, in small letters
};

/// Nothing when the file cannot be read to its end.
std::optional<FileDigest> file_digest(const std::filesystem::path& path);

}  // namespace base
