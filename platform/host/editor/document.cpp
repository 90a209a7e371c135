#include "platform/host/editor/document.h"

#include "base/code_page.h"
#include "dbapserv.h"
#include "platform/host/database/database_store.h"
#include "platform/host/editor/editor.h"

namespace host {

std::unique_ptr<Document> Document::open(const std::filesystem::path& path, std::wstring& reason) {
    dxf::Error error;
    std::unique_ptr<AcDbDatabase> database = open_database(path, error);
    if (database == nullptr) {
        reason = base::wide_from_utf8(error.message());
        return nullptr;
    }
    return std::unique_ptr<Document>(new Document(std::move(database), path));
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

std::wstring Document::save_copy(const std::filesystem::path& path) const {
    const base::WriteStatus status = drawing().save(path);
    return status ? L"" : path.wstring() + L" could not be saved: " + base::wide_from_utf8(status.reason());
}

std::wstring Document::save(const std::filesystem::path& path) {
    std::wstring problem = save_copy(path);
    if (!problem.empty()) {
        return problem;
    }
    state_saved_ = drawing().history().state();
    set_path(path);
    return {};
}

void Document::make_current() {
    acdbHostApplicationServices()->setWorkingDatabase(database_.get());
}

bool Document::unlock() {
    if (locks_.empty()) {
        return false;
    }
    locks_.pop_back();
    return true;
}

AcAp::DocLockMode Document::lockMode(bool) const {
    return locks_.empty() ? AcAp::kNotLocked : locks_.back();
}

bool Document::isQuiescent() const {
    return !editor().processor.is_busy();
}

void Document::set_path(const std::filesystem::path& path) {
    path_ = std::filesystem::absolute(path);
    file_name_ = path_.wstring();
    title_ = path_.filename().wstring();
    database_->store().set_file_name(file_name_);
}

}  // namespace host
