#include "platform/host/editor/document_manager.h"

#include <afxwin.h>

#include <algorithm>

#include "platform/host/editor/document.h"
#include "platform/host/prompt/person.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocumentIterator, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)

void AcApDocManagerReactor::documentCreateStarted(AcApDocument*) {}
void AcApDocManagerReactor::documentCreated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentDestroyed(const ACHAR*) {}
void AcApDocManagerReactor::documentCreateCanceled(AcApDocument*) {}
void AcApDocManagerReactor::documentBecameCurrent(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentToBeDeactivated(AcApDocument*) {}
void AcApDocManagerReactor::documentActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentTitleUpdated(AcApDocument*) {}

namespace host {
namespace {

class OneDocumentIterator final : public AcApDocumentIterator {
  public:
    explicit OneDocumentIterator(AcApDocument* document) : document_(document) {}
    bool done() const override { return document_ == nullptr; }
    void step() override { document_ = nullptr; }
    AcApDocument* document() override { return document_; }

  private:
    AcApDocument* document_;
};

}  // namespace

DocumentManager::DocumentManager(Hooks hooks) : hooks_(std::move(hooks)) {}
DocumentManager::~DocumentManager() = default;

/// Reactors may come and go while they are told; one that was removed meanwhile is not called any more.
template <typename Call>
void DocumentManager::tell_reactors(Call call) {
    const std::vector<AcApDocManagerReactor*> told = reactors_;
    for (AcApDocManagerReactor* reactor : told) {
        if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end()) {
            call(*reactor);
        }
    }
}

std::wstring DocumentManager::open(const std::filesystem::path& path) {
    std::wstring reason;
    std::unique_ptr<Document> opened = Document::open(path, reason);
    if (opened == nullptr) {
        return reason;
    }
    close();
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentCreateStarted(opened.get()); });
    document_ = std::move(opened);
    document_->make_current();
    hooks_.opened(*document_);
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentCreated(document_.get()); });
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentToBeActivated(document_.get()); });
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentBecameCurrent(document_.get()); });
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentActivated(document_.get()); });
    return {};
}

void DocumentManager::close() {
    if (document_ == nullptr) {
        return;
    }
    hooks_.closing();
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDeactivated(document_.get()); });
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentToBeDestroyed(document_.get()); });
    const std::wstring file_name = document_->fileName();
    document_.reset();
    tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentDestroyed(file_name.c_str()); });
}

std::wstring DocumentManager::save(const std::filesystem::path& path) {
    if (document_ == nullptr) {
        return L"no drawing is open";
    }
    const std::wstring title = document_->docTitle();
    std::wstring reason = document_->save(path);
    if (title != document_->docTitle()) {
        tell_reactors([&](AcApDocManagerReactor& reactor) { reactor.documentTitleUpdated(document_.get()); });
    }
    return reason;
}

AcApDocument* DocumentManager::curDocument() const {
    return document_.get();
}

AcApDocument* DocumentManager::mdiActiveDocument() const {
    return document_.get();
}

AcApDocument* DocumentManager::document(const AcDbDatabase* database) const {
    return document_ != nullptr && document_->database() == database ? document_.get() : nullptr;
}

AcApDocumentIterator* DocumentManager::newAcApDocumentIterator() {
    return new OneDocumentIterator(document_.get());
}

Acad::ErrorStatus DocumentManager::lockDocument(AcApDocument* document, AcAp::DocLockMode mode, const ACHAR*,
                                                const ACHAR*, bool) {
    if (document == nullptr || document != document_.get()) {
        return Acad::eInvalidInput;
    }
    document_->lock(mode);
    return Acad::eOk;
}

Acad::ErrorStatus DocumentManager::unlockDocument(AcApDocument* document) {
    const bool known = document != nullptr && document == document_.get();
    return known && document_->unlock() ? Acad::eOk : Acad::eInvalidInput;
}

void DocumentManager::addReactor(AcApDocManagerReactor* reactor) {
    if (reactor != nullptr && std::find(reactors_.begin(), reactors_.end(), reactor) == reactors_.end()) {
        reactors_.push_back(reactor);
    }
}

void DocumentManager::removeReactor(AcApDocManagerReactor* reactor) {
    reactors_.erase(std::remove(reactors_.begin(), reactors_.end(), reactor), reactors_.end());
}

void DocumentManager::pushResourceHandle(HINSTANCE resources) {
    resources_.push_back(AfxGetResourceHandle());
    AfxSetResourceHandle(resources);
}

void DocumentManager::popResourceHandle() {
    if (resources_.empty()) {
        person().report(L"popResourceHandle was called without a handle pushed.");
        return;
    }
    AfxSetResourceHandle(resources_.back());
    resources_.pop_back();
}

bool DocumentManager::restore_resource_depth(size_t depth) {
    const bool balanced = resources_.size() == depth;
    while (resources_.size() > depth) {
        popResourceHandle();
    }
    return balanced;
}

}  // namespace host
