// The open drawing as modules see it, the reactors, and the stack of resource handles.
#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "acdocman.h"
#include "base/replace_file.h"

namespace host {

class Document;

/// The host has one drawing open at a time.
class DocumentManager final : public AcApDocManager {
  public:
    /// What the host's other parts do when a drawing has been opened (before the reactors hear of it), and when it is
    /// about to be closed.
    struct Hooks {
        std::function<void(Document&)> opened;
        std::function<void()> closing;
    };
    explicit DocumentManager(Hooks hooks);
    ~DocumentManager() override;

    /// Opens a drawing in place of the one that is open, which is closed only when the new one could be read.
    /// The reason when it could not: "FILE:LINE: reason".
    std::wstring open(const std::filesystem::path& path);
    /// Closes the drawing without saving; the reactors are told.
    void close();
    /// Null while none is open.
    Document* document() const { return document_.get(); }
    /// Saves the open drawing; it has that name from then on. The reason for a failure, or empty.
    std::wstring save(const std::filesystem::path& path);

    size_t resource_depth() const { return resources_.size(); }
    /// Pops what was pushed above `depth`. False when the stack was not at that depth.
    bool restore_resource_depth(size_t depth);

    AcApDocument* curDocument() const override;
    AcApDocument* mdiActiveDocument() const override;
    AcApDocument* document(const AcDbDatabase* database) const override;
    int documentCount() const override { return document_ != nullptr ? 1 : 0; }
    AcApDocumentIterator* newAcApDocumentIterator() override;
    Acad::ErrorStatus lockDocument(AcApDocument* document, AcAp::DocLockMode mode, const ACHAR* global_command,
                                   const ACHAR* local_command, bool prompt) override;
    Acad::ErrorStatus unlockDocument(AcApDocument* document) override;
    void addReactor(AcApDocManagerReactor* reactor) override;
    void removeReactor(AcApDocManagerReactor* reactor) override;
    void pushResourceHandle(HINSTANCE resources) override;
    void popResourceHandle() override;
    bool isApplicationContext() const override { return false; }

  private:
    template <typename Call>
    void tell_reactors(Call call);

    const Hooks hooks_;
    std::unique_ptr<Document> document_;
    std::vector<AcApDocManagerReactor*> reactors_;
    std::vector<HINSTANCE> resources_;  ///< what was current before each push
};

}  // namespace host
