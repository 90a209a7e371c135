// Writing a file so that a crash or a failed write leaves the old contents or the new ones, whole.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace base {

/// What became of a write: ok, or the reason in words fit for a message ("disk full", "permission denied").
struct WriteStatus {
    bool ok = true;
    std::string reason;
    explicit operator bool() const { return ok; }
};

/// Collects the new contents of a file in a temporary file beside it. Nothing happens to the target until commit();
/// without a commit the destructor removes the temporary file. A link is followed: the file that it names is replaced.
/// The permissions of an existing file are kept. Where the folder forbids new files but the target can be written, the
/// contents are kept in memory and written directly at commit.
class FileReplacement {
  public:
    explicit FileReplacement(std::filesystem::path target);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Appends bytes; the first failure is remembered and returned by commit() too.
    WriteStatus write(std::string_view bytes);
    /// Flushes to the disk and puts the new file in the target's place.
    WriteStatus commit();

  private:
    struct Platform;
    WriteStatus fail(std::string reason);

    std::filesystem::path target_;
    std::filesystem::path temporary_;
    Platform* file_ = nullptr;
    std::string direct_;
    bool write_directly_ = false;
    bool committed_ = false;
    WriteStatus status_;
};

/// The whole of a small file at once.
WriteStatus replace_file(const std::filesystem::path& target, std::string_view bytes);

}  // namespace base
