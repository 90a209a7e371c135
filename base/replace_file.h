// Writing a file so that a crash or a failed write leaves the old contents or the new ones, whole.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace base {

/// What became of a write: ok, or the reason in words fit for a message ("No space left on device").
struct WriteStatus {
    bool ok = true;
    std::string reason;
    explicit operator bool() const { return ok; }
};

/// Collects the new contents of a file in a temporary file beside it. Nothing happens to the target until commit();
/// without a commit the destructor removes the temporary file, and the next replacement of the same target removes one
/// whose process was killed. A link is followed: the file that it names is replaced.
/// The permissions of an existing file are kept. Where no new file can be made beside the target, or another program
/// has it open in a way that allows writing but not replacing, it is written directly at commit: first what makes it
/// longer, so that a full disk is met before anything of the old contents is gone.
class FileReplacement {
  public:
    explicit FileReplacement(const std::filesystem::path& target);
    ~FileReplacement();
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;

    /// Appends bytes. The first failure sticks: later calls, and commit(), return it.
    WriteStatus write(std::string_view bytes);
    /// Flushes to the disk and puts the new file in the target's place. To be called once.
    WriteStatus commit();

    /// An open file of the operating system.
    class File;

  private:
    WriteStatus replace();

    std::filesystem::path target_;
    std::filesystem::path temporary_;
    std::unique_ptr<File> file_;
    std::string contents_;
    WriteStatus status_;
};

/// The whole of a small file at once.
WriteStatus replace_file(const std::filesystem::path& target, std::string_view bytes);

}  // namespace base
