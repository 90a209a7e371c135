// A file's bytes, mapped for reading.
#pragma once

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace dxf {

/// Owns a read-only mapping of a whole file; the bytes live as long as the owner. Move-only.
/// The file must not be shortened by others while it is mapped.
class FileMapping {
  public:
    FileMapping() = default;
    FileMapping(FileMapping&& other) noexcept;
    FileMapping& operator=(FileMapping&& other) noexcept;
    FileMapping(const FileMapping&) = delete;
    FileMapping& operator=(const FileMapping&) = delete;
    ~FileMapping();

    /// Maps `path`; nothing and a reason in words when that cannot be done. An empty file gives an empty mapping.
    static std::optional<FileMapping> open(const std::filesystem::path& path, std::string& reason);

    std::string_view bytes() const { return {data_, size_}; }

    /// Gives the mapping up at once; afterwards bytes() is empty.
    void reset();

  private:
    const char* data_ = nullptr;
    size_t size_ = 0;
};

}  // namespace dxf
