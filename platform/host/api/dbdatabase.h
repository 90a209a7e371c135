// AcDbDatabase: one open drawing.
#pragma once

#include <memory>

#include "acdb.h"
#include "dbid.h"

class AcDbBlockTable;
class AcDbLayerTable;
class AcDbTextStyleTable;

namespace host {
class DatabaseStore;
}

class AcDbDatabase {
  public:
    /// Takes over a store. The host opens drawings (host::open_database); modules only meet those that are open.
    explicit AcDbDatabase(std::unique_ptr<host::DatabaseStore> store);
    /// Ends the use of all ids and of all pointers to open objects of this drawing.
    ~AcDbDatabase();
    AcDbDatabase(const AcDbDatabase&) = delete;
    AcDbDatabase& operator=(const AcDbDatabase&) = delete;

    AcDbObjectId blockTableId() const;
    AcDbObjectId layerTableId() const;
    AcDbObjectId textStyleTableId() const;

    Acad::ErrorStatus getBlockTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getLayerTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getTextStyleTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbBlockTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbLayerTable*& table, AcDb::OpenMode mode) const;
    Acad::ErrorStatus getSymbolTable(AcDbTextStyleTable*& table, AcDb::OpenMode mode) const;

    /// The object with the handle; eUnknownHandle without one. Ids are never made for new handles: `createIfNotFound`
    /// must be false (eInvalidInput).
    Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle) const;

    /// The block of the space that commands work in: that of model space, or of paper space while TILEMODE is 0.
    AcDbObjectId currentSpaceId() const;
    bool tilemode() const;

    /// The drawing's file. Valid until the drawing is saved under another name.
    Acad::ErrorStatus getFilename(const ACHAR*& path) const;

    /// For the host's own parts.
    host::DatabaseStore& store() const { return *store_; }

  private:
    std::unique_ptr<host::DatabaseStore> store_;
};
