// SHA-256 sums, of files and of texts.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace base {

struct FileDigest {
    std::uint64_t size = 0;
    std::string sha256;  ///< hexadecimal, in small letters
};

/// Nothing when the file cannot be read to its end.
std::optional<FileDigest> file_digest(const std::filesystem::path& path);

/// The 32 bytes of a text's sum.
std::string sha256_of(std::string_view text);

}  // namespace base
