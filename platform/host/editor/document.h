// One open drawing: its file, its database, its locks.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "acdocman.h"
#include "dbmain.h"

namespace dxf {
class Drawing;
}

namespace host {

class Document final : public AcApDocument {
  public:
    /// Reads a drawing. Null, and the reason ("FILE:LINE: reason"), when it cannot be read.
    static std::unique_ptr<Document> open(const std::filesystem::path& path, std::wstring& reason);
    ~Document() override;

    const std::filesystem::path& path() const { return path_; }
    dxf::Drawing& drawing() const;
    /// The drawing has changes that no save has written.
    bool changed() const;
    /// Saves to a file, which the drawing is named after from then on. The reason for a failure, or empty.
    std::wstring save(const std::filesystem::path& path);
    /// Saves to another file, and changes nothing about this drawing. The reason for a failure, or empty.
    std::wstring save_copy(const std::filesystem::path& path) const;

    /// Makes the drawing the one that commands and database functions work on.
    void make_current();

    void lock(AcAp::DocLockMode mode) { locks_.push_back(mode); }
    /// Takes the last lock back; false when there is none.
    bool unlock();

    const ACHAR* fileName() const override { return file_name_.c_str(); }
    const ACHAR* docTitle() const override { return title_.c_str(); }
    AcDbDatabase* database() const override { return database_.get(); }
    AcAp::DocLockMode lockMode(bool include_own) const override;
    AcAp::DocLockMode myLockMode() const override { return lockMode(true); }
    bool isQuiescent() const override;
    bool isReadOnly() const override { return false; }

  private:
    Document(std::unique_ptr<AcDbDatabase> database, const std::filesystem::path& path);
    void set_path(const std::filesystem::path& path);

    std::filesystem::path path_;
    std::wstring file_name_;
    std::wstring title_;
    std::vector<AcAp::DocLockMode> locks_;
    uint64_t state_saved_ = 0;
    std::unique_ptr<AcDbDatabase> database_;
};

}  // namespace host
