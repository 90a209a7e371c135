#include "dbmain.h"

#include <iostream>

#include "dbapserv.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"

namespace {

template <class Table>
Acad::ErrorStatus open_table(Table*& table, AcDbObjectId id, AcDb::OpenMode mode) {
    return acdbOpenObject(table, id, mode);
}

/// Tells developers of objects that a command opened and did not close.
void log_open_objects([[maybe_unused]] const host::DatabaseStore& store) {
#if !defined(NDEBUG)
    const std::wstring report = host::open_object_report(store.open_objects());
    if (!report.empty()) {
        std::wcerr << L"objects left open in a drawing that is closed:\n" << report << std::flush;
    }
#endif
}

}  // namespace

AcDbDatabase::AcDbDatabase(std::unique_ptr<host::DatabaseStore> store) : store_(std::move(store)) {
    store_->set_database(this);
}

AcDbDatabase::~AcDbDatabase() {
    log_open_objects(*store_);
}

AcDbObjectId AcDbDatabase::blockTableId() const {
    return store_->id_of_table(host::TableKind::blocks);
}

AcDbObjectId AcDbDatabase::layerTableId() const {
    return store_->id_of_table(host::TableKind::layers);
}

AcDbObjectId AcDbDatabase::textStyleTableId() const {
    return store_->id_of_table(host::TableKind::text_styles);
}

Acad::ErrorStatus AcDbDatabase::getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const {
    return open_table(table, blockTableId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const {
    return open_table(table, layerTableId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const {
    return open_table(table, textStyleTableId(), mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const {
    return getBlockTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const {
    return getLayerTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const {
    return getTextStyleTable(table, mode);
}

Acad::ErrorStatus AcDbDatabase::getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound,
                                                const AcDbHandle& handle) const {
    if (createIfNotFound) {
        return Acad::eInvalidInput;
    }
    if (handle.isNull()) {
        return Acad::eNullHandle;
    }
    const AcDbObjectId found = store_->with_handle(handle);
    if (found.isNull()) {
        return Acad::eUnknownHandle;
    }
    id = found;
    return Acad::eOk;
}

AcDbObjectId AcDbDatabase::currentSpaceId() const {
    return store_->id_of_block(store_->current_space());
}

bool AcDbDatabase::tilemode() const {
    return store_->tilemode();
}

Acad::ErrorStatus AcDbDatabase::getFilename(const ACHAR*& path) const {
    path = store_->file_name().c_str();
    return Acad::eOk;
}

AcDbHostApplicationServices* acdbHostApplicationServices() {
    static AcDbHostApplicationServices services;
    return &services;
}

namespace host {

OpenDatabase open_database(dxf::OpenResult drawing) {
    if (!drawing) {
        return base::Failure{drawing.reason()};
    }
    return std::make_unique<AcDbDatabase>(std::make_unique<DatabaseStore>(*std::move(drawing)));
}

OpenDatabase open_database(const std::filesystem::path& path) {
    return open_database(dxf::Drawing::open(path));
}

OpenDatabase open_database_from_bytes(std::string bytes, const std::filesystem::path& name) {
    return open_database(dxf::Drawing::from_bytes(std::move(bytes), name));
}

}  // namespace host
