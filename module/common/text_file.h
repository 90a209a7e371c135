// Whole text files: read at once, written safely.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/text_conversion.h"

namespace corvanes {

/// The text of a file, decoded; nothing when it cannot be read whole (a folder cannot, nor a file
/// that is changed meanwhile).
std::optional<std::wstring> read_text_file(const std::filesystem::path& path);

/// Puts the text in the file's place, encoded whole beforehand; line ends stand in the text as they are to be written.
/// False when it could not be written: then the old file is still there.
bool write_text_file(const std::filesystem::path& path, std::wstring_view text,
                     TextEncoding encoding = TextEncoding::system_code_page);

}  // namespace corvanes
