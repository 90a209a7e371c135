// The open drawing as modules see it, the reactors that hear of it, and the stack of resource handles.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <future>
#include <memory>
#include <string>
#include <vector>

#include "acdocman.h"
#include "base/result.h"
#include "dbmain.h"
#include "platform/host/dxf/drawing.h"

namespace host {

/// One open drawing: its file and its database. The database functions work on it for as long as it lives.
class Document final : public AcApDocument {
  public:
    /// Reads a DXF drawing, or a DWG drawing as ConvertedDrawing does. The reason why it cannot be read has the form
    /// "FILE:LINE: reason". A valid `reading` gives the DXF drawing that is in the file, which is then not read again.
    static base::Result<std::unique_ptr<Document>> open(const std::filesystem::path& path,
                                                        std::future<dxf::OpenResult> reading = {});
    ~Document() override;

    const std::filesystem::path& path() const { return path_; }
    dxf::Drawing& drawing() const;
    /// Whether the drawing can be saved only under another name: it came from a DWG file or has the name of one, and
    /// the host does not write DWG.
    bool needs_new_name() const;
    /// The path to propose for a save: the drawing's own, or one with the extension of DXF beside it.
    std::filesystem::path name_to_save() const;
    /// Whether the drawing has changes that no save has written.
    bool changed() const;
    /// Saves to a file, which must be no DWG; from then on the drawing is named after it.
    base::Outcome<> save(const std::filesystem::path& path);
    /// Saves to another file, and changes nothing about this drawing.
    base::Outcome<> save_copy(const std::filesystem::path& path) const;

    const ACHAR* fileName() const override { return file_name_.c_str(); }
    const ACHAR* docTitle() const override { return title_.c_str(); }
    AcDbDatabase* database() const override { return database_.get(); }

  private:
    Document(std::unique_ptr<AcDbDatabase> database, const std::filesystem::path& path);
    void set_path(const std::filesystem::path& path);

    std::filesystem::path path_;
    std::wstring file_name_;
    std::wstring title_;
    uint64_t state_saved_ = 0;
    bool from_dwg_ = false;
    std::unique_ptr<AcDbDatabase> database_;
};

/// The host has one drawing open at a time.
class DocumentManager final : public AcApDocManager {
  public:
    /// The host's other parts are told here that a drawing has been opened (before the reactors hear of it), and that
    /// it is about to be closed.
    struct Hooks {
        std::function<void(Document&)> opened;
        std::function<void()> closing;
    };
    explicit DocumentManager(Hooks hooks) : hooks_(std::move(hooks)) {}

    /// Has another thread begin to read the DXF drawing that is to be opened next, so that open() takes less time.
    /// Nobody sees the progress of that reading or can end it. Does nothing for a DWG drawing.
    void begin_to_open(const std::filesystem::path& path);
    /// Opens a drawing in place of the one that is open, which is closed only when the new one could be read. Fails
    /// with the reason of Document::open.
    base::Outcome<> open(const std::filesystem::path& path);
    /// Closes the drawing without saving; the reactors are told.
    void close();
    /// Null while none is open.
    Document* document() const { return document_.get(); }
    /// Saves the open drawing, as Document::save does, and tells the reactors when its title changed.
    base::Outcome<> save(const std::filesystem::path& path);

    size_t resource_depth() const { return resources_.size(); }
    /// Pops what was pushed above `depth`. False when the stack was not at that depth.
    bool restore_resource_depth(size_t depth);

    AcApDocument* curDocument() const override { return document_.get(); }
    void addReactor(AcApDocManagerReactor* reactor) override;
    void removeReactor(AcApDocManagerReactor* reactor) override;
    void pushResourceHandle(HINSTANCE resources) override;
    void popResourceHandle() override;

  private:
    void tell_reactors(void (AcApDocManagerReactor::*event)(AcApDocument*));

    const Hooks hooks_;
    std::unique_ptr<Document> document_;
    std::filesystem::path path_begun_;
    std::future<dxf::OpenResult> reading_;  ///< of path_begun_; valid until it is taken
    std::vector<AcApDocManagerReactor*> reactors_;
    std::vector<HINSTANCE> resources_;  ///< what was current before each push
};

}  // namespace host
