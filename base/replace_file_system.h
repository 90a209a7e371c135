// What base/replace_file asks of the operating system.
#pragma once

#include "base/replace_file.h"

namespace base {

class FileReplacement::File {
  public:
    /// A new file that nobody else has; null when it cannot be made, with the reason in `status`.
    static std::unique_ptr<File> create(const std::filesystem::path& path, WriteStatus& status);
    File() = default;
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    virtual ~File() = default;
    virtual WriteStatus write(std::string_view bytes) = 0;
    /// To the disk itself, then closed.
    virtual WriteStatus finish() = 0;
};

/// The file that a path names after all links; the path itself when there is no such file.
std::filesystem::path resolve_links(const std::filesystem::path& path);
/// Whether the file is there and may not be written, or is no file at all; the reason goes to `status`.
bool refuses_writing(const std::filesystem::path& path, WriteStatus& status);
/// Gives `to` the permissions of `from`, as far as the system lets us.
void copy_permissions(const std::filesystem::path& from, const std::filesystem::path& to);
/// Atomically puts `from` in the place of `to`.
WriteStatus move_over(const std::filesystem::path& from, const std::filesystem::path& to);
/// A number that no other running process uses.
unsigned long process_number();
bool process_runs(unsigned long number);

}  // namespace base
