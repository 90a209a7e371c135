// Writing a file so that a crash or a failed write leaves the old contents or the new ones, whole.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "base/write_status.h"

namespace base {

class ReplacementFile;

/// Collects the new contents of a file in a temporary file beside it. Nothing happens to the target until commit();
/// without a commit the destructor removes the temporary file, and the next replacement of the same target removes one
/// whose writer was killed. Any number of processes, Wine prefixes and machines may replace one file at once: each puts
/// its own contents there whole, and the last one's stay.
///
/// A link is followed: the file that it names is replaced; a link to nothing is refused. Mode, owner and group of an
/// existing file are kept. commit() writes into the file itself only where it cannot replace it: mode, owner and group
/// cannot be kept (the file is another user's), no file may be made beside it, or it may be written but not replaced
/// (another program has it open, it is a mount point). It then writes first what makes the file longer, so that a full
/// disk is met before any of the old contents are gone. When writing over the old contents fails, the temporary file
/// stays under a name of its own, which the reason tells.
///
/// CORVANES_DELIVERED_LATER names a folder that nobody else uses, and from which another program delivers the files
/// when all are there: it flushes them and gives them their modes. New files in that folder are written under their own
/// names.
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

  private:
    void take_over();
    WriteStatus write_in_place();
    std::error_code copy(ReplacementFile& target, std::uint64_t begin, std::uint64_t end);
    WriteStatus keep_for_rescue(std::error_code error);

    std::filesystem::path target_;
    std::unique_ptr<ReplacementFile> temporary_;  ///< null where none may be made; then contents_ holds what is written
    bool is_delivered_later_ = false;
    bool target_is_new_ = false;
    bool may_replace_ = false;
    std::string contents_;
    std::uint64_t size_ = 0;
    WriteStatus status_;
};

/// The whole of a small file at once.
WriteStatus replace_file(const std::filesystem::path& target, std::string_view bytes);

}  // namespace base
