// Reading a whole file, safe from what others do to it meanwhile and afterwards.
#pragma once

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "base/result.h"

namespace base {

/// Owns a copy of a file's bytes. A mapping would be cheaper. But when another program shortens a mapped file, its
/// pages vanish from under this one, and while another program rewrites it, this one sees a mixture.
class FileContents {
  public:
    FileContents() = default;

    /// The whole of a file, or why it cannot be read (it was changed meanwhile, say), in UTF-8.
    static Result<FileContents, std::string> read(const std::filesystem::path& path);

    std::string_view bytes() const { return {data_.get(), size_}; }

  private:
    std::unique_ptr<char[]> data_;
    size_t size_ = 0;
};

}  // namespace base
