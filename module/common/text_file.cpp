#include "common/text_file.h"

#include "base/file_contents.h"
#include "base/replace_file.h"

namespace corvanes {

std::optional<std::wstring> read_text_file(const std::filesystem::path& path) {
    const auto contents = base::FileContents::read(path);
    return contents ? std::optional(text_from_file_bytes(contents->bytes())) : std::nullopt;
}

bool write_text_file(const std::filesystem::path& path, std::wstring_view text, TextEncoding encoding) {
    return static_cast<bool>(base::replace_file(path, file_bytes_from_text(text, encoding)));
}

}  // namespace corvanes
