// Whole text files: read at once, written safely.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/text_conversion.h"

namespace corvanes {

/// The text of a file, decoded; nothing when it cannot be read whole, as a folder or a file that is changed meanwhile.
std::optional<std::wstring> read_text_file(const std::filesystem::path& path);

/// Replaces the file by the text, which is encoded as a whole before anything is written; its line ends are written as
/// they are. False when the file could not be written: then the old one is still there.
bool write_text_file(const std::filesystem::path& path, std::wstring_view text,
                     TextEncoding encoding = TextEncoding::system_code_page);

}  // namespace corvanes
