#include "platform/host/database/open_objects.h"

#include <algorithm>

#include "platform/host/database/object_gate.h"

namespace host {
namespace {

/// The tables of all open drawings.
std::vector<const OpenObjects*>& tables() {
    static std::vector<const OpenObjects*> all;
    return all;
}

std::wstring describe(const AcDbObject& object) {
    ACHAR handle[AcDbHandle::kStrSiz];
    object.objectId().handle().getIntoAsciiBuffer(handle);
    std::wstring line = object.isA()->name();
    line += L" handle ";
    line += handle;
    line += ObjectGate::writing(object) ? std::wstring(L" open for write")
                                        : L" open for read by " + std::to_wstring(ObjectGate::readers(object));
    return line;
}

}  // namespace

OpenObjects::OpenObjects() {
    tables().push_back(this);
}

OpenObjects::~OpenObjects() {
    for (AcDbObject* const object : all()) {
        const std::unique_ptr<AcDbObject> left_open(object);
    }
    tables().erase(std::find(tables().begin(), tables().end(), this));
}

void OpenObjects::put(ObjectAddress at, AcDbObject& object) {
    std::vector<std::unique_ptr<Page>>& pages = pages_[static_cast<size_t>(at.space)];
    const size_t page = at.number / page_size;
    if (page >= pages.size()) {
        pages.resize(page + 1);
    }
    if (!pages[page]) {
        pages[page] = std::make_unique<Page>();
        pages[page]->fill(nullptr);
    }
    (*pages[page])[at.number % page_size] = &object;
    ++count_;
}

void OpenObjects::remove(ObjectAddress at) {
    (*pages_[static_cast<size_t>(at.space)][at.number / page_size])[at.number % page_size] = nullptr;
    --count_;
}

std::vector<AcDbObject*> OpenObjects::all() const {
    std::vector<AcDbObject*> open;
    for (const auto& pages : pages_) {
        for (const std::unique_ptr<Page>& page : pages) {
            if (page) {
                std::copy_if(page->begin(), page->end(), std::back_inserter(open),
                             [](const AcDbObject* object) { return object != nullptr; });
            }
        }
    }
    return open;
}

size_t open_object_count() {
    size_t count = 0;
    for (const OpenObjects* const table : tables()) {
        count += table->count();
    }
    return count;
}

std::wstring open_object_report() {
    std::wstring report;
    for (const OpenObjects* const table : tables()) {
        report += open_object_report(*table);
    }
    return report;
}

std::wstring open_object_report(const OpenObjects& objects) {
    std::wstring report;
    for (const AcDbObject* const object : objects.all()) {
        report += describe(*object) + L"\n";
    }
    return report;
}

}  // namespace host
