// What base/file_contents asks of the operating system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <system_error>

namespace base {

/// A file of the operating system that is being read.
class FileSource {
  public:
    /// A mark of the file's state. Two marks differ when somebody has written to the file in between.
    struct Stamp {
        std::uint64_t size = 0;
        std::int64_t written = 0;  ///< when, in the system's finest units

        bool operator==(const Stamp&) const = default;
    };

    /// Null when the file cannot be opened. Others may write, rename and delete it meanwhile.
    static std::unique_ptr<FileSource> open(const std::filesystem::path& path, std::error_code& error);
    FileSource() = default;
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;
    virtual ~FileSource() = default;
    virtual Stamp stamp(std::error_code& error) const = 0;
    /// Reads what follows, at most `size` bytes; returns how many there were.
    virtual size_t read(char* to, size_t size, std::error_code& error) = 0;
};

}  // namespace base
