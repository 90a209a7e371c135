// A folder among the system's temporary files that goes, with what is in it, when its owner does.
#pragma once

#include <filesystem>

namespace base {

class TemporaryFolder {
  public:
    /// Makes a folder that no other call and no other program uses.
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(TemporaryFolder&& other) noexcept;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    /// Empty when there can be no such folder.
    const std::filesystem::path& path() const { return path_; }

  private:
    std::filesystem::path path_;
};

}  // namespace base
