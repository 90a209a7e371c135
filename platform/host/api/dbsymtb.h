// Symbol tables (blocks, layers, text styles), their records and iterators.
#pragma once

#include <memory>
#include <string>

#include "dbmain.h"
#include "gepnt3d.h"

namespace dxf {
struct Layer;
struct TextStyle;
}  // namespace dxf
namespace host {
enum class TableKind : unsigned char;
}

class AcDbSymbolTableRecord : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord);

    /// The name as stored, in host memory, to be released with acutDelString.
    Acad::ErrorStatus getName(ACHAR*& name) const;
    /// eInvalidInput for an empty name or one with forbidden characters, eDuplicateRecordName for that of another
    /// record of the table.
    Acad::ErrorStatus setName(const ACHAR* name);

  protected:
    AcDbSymbolTableRecord() = default;
    void read_fields(const dxf::RecordFields& from) override;

    std::wstring name_;
    int flags_ = 0;  ///< group 70

  private:
    friend class AcDbSymbolTable;
    friend class host::DatabaseStore;
    virtual const std::wstring& stored_name() const;
};

class AcDbSymbolTable : public AcDbObject {
  public:
    ACRX_DECLARE_MEMBERS(AcDbSymbolTable);

    /// The record of that name, without regard to case; eKeyNotFound without one.
    Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool getErasedRecord = false) const;
    bool has(const ACHAR* name) const;
    bool has(AcDbObjectId id) const;
    /// Adds a record that is in no drawing and has a name. It is then open for write and must be closed.
    Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
    Acad::ErrorStatus add(AcDbSymbolTableRecord* record);

  protected:
    explicit AcDbSymbolTable(host::TableKind kind) : kind_(kind) {}
    Acad::ErrorStatus open_at(const ACHAR* name, AcDbObject*& record, const AcRxClass* record_class,
                              AcDb::OpenMode mode, bool open_erased) const;

  private:
    friend class AcDbSymbolTableIterator;
    const AcRxClass* record_class() const;

    host::TableKind kind_;
};

/// Walks a table's records in file order; the caller deletes it. It stays good while records are added and erased.
class AcDbSymbolTableIterator {
  public:
    AcDbSymbolTableIterator(const AcDbSymbolTable& table, bool atBeginning, bool skipDeleted);

    void start(bool atBeginning = true, bool skipDeleted = true);
    bool done() const { return at_ < 0; }
    void step(bool forward = true, bool skipDeleted = true);
    Acad::ErrorStatus getRecordId(AcDbObjectId& id) const;
    Acad::ErrorStatus getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErasedRecord = false) const;

  protected:
    Acad::ErrorStatus open_record(AcDbObject*& record, const AcRxClass* record_class, AcDb::OpenMode mode,
                                  bool open_erased) const;

  private:
    host::DatabaseStore* store() const;
    void settle(int direction, bool skip_erased);

    AcDbObjectId table_;
    host::TableKind kind_;
    long long at_ = -1;  ///< -1: done
};

/// The typed operations of one kind of table.
template <class Record, class Iterator, class Base = AcDbSymbolTable>
class AcDbTypedSymbolTable : public Base {
  public:
    using Base::add;
    using Base::getAt;

    Acad::ErrorStatus getAt(const ACHAR* name, Record*& record, AcDb::OpenMode mode,
                            bool openErasedRecord = false) const {
        AcDbObject* opened = nullptr;
        const Acad::ErrorStatus status = this->open_at(name, opened, Record::desc(), mode, openErasedRecord);
        record = static_cast<Record*>(opened);
        return status;
    }
    Acad::ErrorStatus add(Record* record) { return Base::add(record); }
    Acad::ErrorStatus add(AcDbObjectId& id, Record* record) { return Base::add(id, record); }
    Acad::ErrorStatus newIterator(Iterator*& iterator, bool atBeginning = true, bool skipDeleted = true) const {
        iterator = new Iterator(*this, atBeginning, skipDeleted);
        return Acad::eOk;
    }

  protected:
    using Base::Base;
};

template <class Record>
class AcDbTypedSymbolTableIterator : public AcDbSymbolTableIterator {
  public:
    using AcDbSymbolTableIterator::AcDbSymbolTableIterator;
    using AcDbSymbolTableIterator::getRecord;

    Acad::ErrorStatus getRecord(Record*& record, AcDb::OpenMode mode = AcDb::kForRead,
                                bool openErasedRecord = false) const {
        AcDbObject* opened = nullptr;
        const Acad::ErrorStatus status = open_record(opened, Record::desc(), mode, openErasedRecord);
        record = static_cast<Record*>(opened);
        return status;
    }
};

class AcDbBlockTableRecordIterator;

/// A block: that of a space or layout, a named or an anonymous one.
class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord);
    AcDbBlockTableRecord() = default;

    /// Adds an entity that is in no drawing; it is then open for write and must be closed.
    Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
    Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
    /// An iterator over the block's entities in file order; the caller deletes it. eNoDatabase for a block in no
    /// drawing.
    Acad::ErrorStatus newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning = true,
                                  bool skipDeleted = true) const;

    AcGePoint3d origin() const;
    Acad::ErrorStatus setOrigin(const AcGePoint3d& point);

    /// Whether it is a space's or a layout's.
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

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord);
    AcDbLayerTableRecord();

    bool isFrozen() const;
    bool isOff() const;
    bool isLocked() const;
    /// The caller must not freeze the current layer; the host does not check it.
    Acad::ErrorStatus setIsFrozen(bool frozen);
    void setIsOff(bool off);
    void setIsLocked(bool locked);

  protected:
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;

  private:
    std::shared_ptr<dxf::Layer> fields_;  ///< never null, this object's alone; name and flags count in the base
};

class AcDbLayerTableIterator : public AcDbTypedSymbolTableIterator<AcDbLayerTableRecord> {
  public:
    using AcDbTypedSymbolTableIterator::AcDbTypedSymbolTableIterator;
};

class AcDbLayerTable : public AcDbTypedSymbolTable<AcDbLayerTableRecord, AcDbLayerTableIterator> {
  public:
    ACRX_DECLARE_MEMBERS(AcDbLayerTable);
    AcDbLayerTable();
};

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
  public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord);
    AcDbTextStyleTableRecord();

    Acad::ErrorStatus setFileName(const ACHAR* file);

  protected:
    void read_fields(const dxf::RecordFields& from) override;
    void write_fields(dxf::FieldWriter& to) const override;

  private:
    std::shared_ptr<dxf::TextStyle> fields_;  ///< never null, this object's alone; name and flags count in the base
};

class AcDbTextStyleTableIterator : public AcDbTypedSymbolTableIterator<AcDbTextStyleTableRecord> {
  public:
    using AcDbTypedSymbolTableIterator::AcDbTypedSymbolTableIterator;
};

class AcDbTextStyleTable : public AcDbTypedSymbolTable<AcDbTextStyleTableRecord, AcDbTextStyleTableIterator> {
  public:
    ACRX_DECLARE_MEMBERS(AcDbTextStyleTable);
    AcDbTextStyleTable();
};
