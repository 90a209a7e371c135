// The block table, its records and what is in them.
#pragma once

#include "dbsymtbl.h"
#include "gepnt3d.h"

class AcDbBlockTableRecordIterator;

/// A block: that of a space or layout, a named or an anonymous one.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;

    /// Adds an entity that is in no drawing; it is then open for write and must be closed.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& point);

    bool isLayout() const;

  protected:
    void read_fields(const dxf::RecordFields& from) override;
    void flush() override;

  private:
    friend class host::DatabaseStore;
    const std::wstring& stored_name() const override;

    AcGePoint3d origin_;
};

class AcDbBlockTableRecordIterator {
  public:
    AcDbBlockTableRecordIterator(AcDbObjectId block, bool atBeginning, bool skipDeleted);

    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const { return at_ < 0; }
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getEntityId(AcDbObjectId& id) const;

  private:
    host::DatabaseStore* store() const;
    void settle(int direction, bool skip_erased);

    AcDbObjectId block_;
    long long at_ = -1;  ///< -1: done
};

class AcDbBlockTableIterator : public AcDbTypedSymbolTableIterator<AcDbBlockTableRecord> {
  public:
    using AcDbTypedSymbolTableIterator::AcDbTypedSymbolTableIterator;
};

class AcDbBlockTable : public AcDbTypedSymbolTable<AcDbBlockTableRecord, AcDbBlockTableIterator> {
  public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTable);
    AcDbBlockTable();
};

#define ACDB_MODEL_SPACE ACRX_T("*Model_Space")
#define ACDB_PAPER_SPACE ACRX_T("*Paper_Space")
