// What base/replace_file asks of the operating system.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/write_status.h"

namespace base {

/// What a new file could take over from the one that it is to replace.
enum class Takeover { whole, incomplete, target_is_broken_link };

/// Where a lock stands in a file: far behind all contents, since some systems let nobody read what is locked.
constexpr std::uint64_t lock_offset = std::uint64_t{1} << 62;

/// The value of CORVANES_DELIVERED_LATER; empty without one.
std::filesystem::path folder_delivered_later();

/// An open file of the operating system.
class ReplacementFile {
  public:
    /// A new file under a name that was free; others can neither read nor write it. Null with the reason.
    static std::unique_ptr<ReplacementFile> create(const std::filesystem::path& path, std::error_code& error);
    /// A file that is there, for reading and writing. Null with the reason.
    static std::unique_ptr<ReplacementFile> open(const std::filesystem::path& path, std::error_code& error);

    explicit ReplacementFile(std::filesystem::path path) : path_(std::move(path)) {}
    ReplacementFile(const ReplacementFile&) = delete;
    ReplacementFile& operator=(const ReplacementFile&) = delete;
    virtual ~ReplacementFile() = default;

    const std::filesystem::path& path() const { return path_; }
    /// Locks the file for as long as this object lives. False while another has it, be it in this process, under
    /// another Wine prefix or on another machine.
    virtual bool lock() = 0;
    /// Whether the file has a name still: nobody has removed it.
    virtual bool is_named() const = 0;
    virtual std::uint64_t size(std::error_code& error) const = 0;
    virtual std::error_code write(std::string_view bytes) = 0;
    /// Reads at most `count` bytes from `offset` on.
    virtual std::string read(std::uint64_t offset, size_t count, std::error_code& error) = 0;
    /// Where the next write begins.
    virtual std::error_code seek(std::uint64_t offset) = 0;
    virtual std::error_code resize(std::uint64_t size) = 0;
    /// Makes the system write all of it to the disk.
    virtual std::error_code flush() = 0;
    /// Gives this new file the mode, owner and group of the target, or what the umask asks when there is no target.
    virtual Takeover take_over_from(const std::filesystem::path& target) = 0;
    /// Gives this file, still open and locked, the name `target` and the mode that the umask asks for. An error when
    /// something has that name, even a link to nothing, or when the caller is to use rename() on this system.
    virtual std::error_code appear_as(const std::filesystem::path& target) = 0;
    /// Atomically puts this file, still open and locked, in the place of `target`.
    virtual std::error_code rename(const std::filesystem::path& target) = 0;
    /// Removes the file, which is still open and locked.
    virtual void remove() = 0;

  protected:
    std::filesystem::path path_;
};

/// The absolute path.
std::filesystem::path full_path(const std::filesystem::path& path);
/// The file that a path names after all links; the path itself when there is no such file.
std::filesystem::path resolve_links(const std::filesystem::path& path);
/// Done when the path may be written; a failure when it exists and is not a file, or may not be written.
WriteStatus refusal_of(const std::filesystem::path& path);
/// The reason in English words.
Failure<std::string> failure(std::error_code error);

}  // namespace base
