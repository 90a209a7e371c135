#include "platform/host/editor/document_manager.h"

#include <afxwin.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "base/background.h"
#include "base/code_page.h"
#include "dbapserv.h"
#include "platform/host/database/database_store.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/dwg_drawing.h"
#include "platform/host/prompt/person.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocument, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManagerReactor, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcApDocManager, AcRxObject)

void AcApDocManagerReactor::documentToBeDestroyed(AcApDocument*) {}
void AcApDocManagerReactor::documentActivated(AcApDocument*) {}
void AcApDocManagerReactor::documentTitleUpdated(AcApDocument*) {}

namespace host {

base::Result<std::unique_ptr<Document>> Document::open(const std::filesystem::path& path,
                                                       std::future<dxf::OpenResult> reading) {
    const ShownProgress shown(L"Reading " + path.filename().wstring());
    std::optional<ConvertedDrawing> converted;
    if (is_dwg(path)) {
        base::Result<ConvertedDrawing> conversion = ConvertedDrawing::convert(path);
        if (!conversion) {
            return base::Failure{conversion.reason()};
        }
        converted.emplace(*std::move(conversion));
    }
    OpenDatabase database =
        reading.valid() ? open_database(reading.get()) : open_database(converted ? converted->dxf() : path);
    if (!database) {
        return base::Failure{base::wide_from_utf8(database.reason().message())};
    }
    if (converted && !converted->notes().empty()) {
        person().print(L"\n" + converted->notes());
    }
    std::unique_ptr<Document> document(new Document(*std::move(database), path));
    document->from_dwg_ = converted.has_value();
    return document;
}

Document::Document(std::unique_ptr<AcDbDatabase> database, const std::filesystem::path& path)
    : database_(std::move(database)) {
    set_path(path);
}

Document::~Document() {
    AcDbHostApplicationServices* const services = acdbHostApplicationServices();
    if (services->workingDatabase() == database_.get()) {
        services->setWorkingDatabase(nullptr);
    }
}

dxf::Drawing& Document::drawing() const {
    return database_->store().drawing();
}

bool Document::changed() const {
    return drawing().history().state() != state_saved_;
}

bool Document::needs_new_name() const {
    return from_dwg_ || has_dwg_name(path_);
}

std::filesystem::path Document::name_to_save() const {
    if (!needs_new_name()) {
        return path_;
    }
    std::filesystem::path name = path_;
    return has_dwg_name(name) ? name.replace_extension(L".dxf") : name += L".dxf";
}

base::Outcome<> Document::save_copy(const std::filesystem::path& path) const {
    if (has_dwg_name(path) || is_dwg(path)) {
        return base::Failure{path.wstring() + L" could not be saved: drawings are saved as DXF, not as DWG"};
    }
    const ShownProgress shown(L"Writing " + path.filename().wstring());
    const base::WriteStatus status = drawing().save(path);
    if (!status) {
        return base::Failure{path.wstring() + L" could not be saved: " + base::wide_from_utf8(status.reason())};
    }
    return {};
}

base::Outcome<> Document::save(const std::filesystem::path& path) {
    base::Outcome<> saved = save_copy(path);
    if (saved) {
        state_saved_ = drawing().history().state();
        from_dwg_ = false;
        set_path(path);
    }
    return saved;
}

void Document::set_path(const std::filesystem::path& path) {
    path_ = std::filesystem::absolute(path);
    file_name_ = path_.wstring();
    title_ = path_.filename().wstring();
    database_->store().set_file_name(file_name_);
}

/// Reactors may come and go while they are told; one that was removed meanwhile is not called any more.
void DocumentManager::tell_reactors(void (AcApDocManagerReactor::*event)(AcApDocument*)) {
    const std::vector<AcApDocManagerReactor*> told = reactors_;
    for (AcApDocManagerReactor* reactor : told) {
        if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end()) {
            (reactor->*event)(document_.get());
        }
    }
}

void DocumentManager::begin_to_open(const std::filesystem::path& path) {
    if (!is_dwg(path)) {
        path_begun_ = path;
        reading_ = base::run_beside([path] { return dxf::Drawing::open(path); });
    }
}

base::Outcome<> DocumentManager::open(const std::filesystem::path& path) {
    std::future<dxf::OpenResult> reading = std::exchange(reading_, {});
    if (path != path_begun_) {
        reading = {};
    }
    base::Result<std::unique_ptr<Document>> opened = Document::open(path, std::move(reading));
    if (!opened) {
        return base::Failure{opened.reason()};
    }
    close();
    document_ = *std::move(opened);
    acdbHostApplicationServices()->setWorkingDatabase(document_->database());
    hooks_.opened(*document_);
    tell_reactors(&AcApDocManagerReactor::documentActivated);
    return {};
}

void DocumentManager::close() {
    if (document_ != nullptr) {
        hooks_.closing();
        tell_reactors(&AcApDocManagerReactor::documentToBeDestroyed);
        document_.reset();
    }
}

base::Outcome<> DocumentManager::save(const std::filesystem::path& path) {
    if (document_ == nullptr) {
        return base::Failure{L"no drawing is open"};
    }
    const std::wstring title = document_->docTitle();
    base::Outcome<> saved = document_->save(path);
    if (title != document_->docTitle()) {
        tell_reactors(&AcApDocManagerReactor::documentTitleUpdated);
    }
    return saved;
}

void DocumentManager::addReactor(AcApDocManagerReactor* reactor) {
    if (reactor != nullptr && std::find(reactors_.begin(), reactors_.end(), reactor) == reactors_.end()) {
        reactors_.push_back(reactor);
    }
}

void DocumentManager::removeReactor(AcApDocManagerReactor* reactor) {
    std::erase(reactors_, reactor);
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
