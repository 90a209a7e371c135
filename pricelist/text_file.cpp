#include "pricelist/text_file.h"

#include <fstream>

#include "base/replace_file.h"
#include "bidi/text_conversion.h"

namespace corvanes {
namespace {

std::optional<std::string> read_bytes(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error)) {
        return std::nullopt;
    }
    std::ifstream stream(path, std::ios::binary);
    if (!stream) {
        return std::nullopt;
    }
    std::string bytes;
    const auto size = std::filesystem::file_size(path, error);
    if (!error) {
        bytes.reserve(static_cast<size_t>(size) + 1);
    }
    constexpr size_t piece = 1U << 20;
    while (stream) {
        const size_t before = bytes.size();
        bytes.resize(before + piece);
        stream.read(bytes.data() + before, piece);
        bytes.resize(before + static_cast<size_t>(stream.gcount()));
    }
    return stream.bad() ? std::nullopt : std::optional(std::move(bytes));
}

}  // namespace

std::optional<std::wstring> read_text_file(const std::filesystem::path& path) {
    const auto bytes = read_bytes(path);
    return bytes ? std::optional(text_from_file_bytes(*bytes)) : std::nullopt;
}

bool write_text_file(const std::filesystem::path& path, std::wstring_view text) {
    return base::replace_file(path, file_bytes_from_text(text)).ok;
}

}  // namespace corvanes
