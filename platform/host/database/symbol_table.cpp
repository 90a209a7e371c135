#include "dbsymtb.h"

#include <cstdlib>
#include <string_view>

#include "acutmem.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/object_gate.h"
#include "platform/host/dxf/entities.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTableRecord, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbSymbolTable, AcDbObject)
ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbTextStyleTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbTextStyleTableRecord, AcDbSymbolTableRecord, 0, 0, 0, STYLE, 0)

namespace {

constexpr std::wstring_view forbidden_characters = L"<>/\\\":;?*|,=`";

/// "*U" and the like begin the names of anonymous blocks.
bool valid_name(std::wstring_view name) {
    if (!name.empty() && name[0] == L'*') {
        name.remove_prefix(1);
    }
    return !name.empty() && name.find_first_of(forbidden_characters) == std::wstring_view::npos;
}

}  // namespace

Acad::ErrorStatus AcDbSymbolTableRecord::getName(ACHAR*& name) const {
    name = acad__strdup(stored_name().c_str());
    return name == nullptr ? Acad::eOutOfMemory : Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableRecord::setName(const ACHAR* name) {
    if (!host::ObjectGate::detached(*this)) {
        return Acad::eNotApplicable;
    }
    if (name == nullptr || !valid_name(name)) {
        return Acad::eInvalidInput;
    }
    name_ = name;
    return Acad::eOk;
}

const std::wstring& AcDbSymbolTableRecord::stored_name() const {
    return loaded(name_);
}

void AcDbSymbolTableRecord::read_fields(const dxf::RecordFields& from) {
    const auto entry = dxf::read<dxf::TableEntry>(from);
    name_ = entry.name;
    flags_ = entry.flags;
}

Acad::ErrorStatus AcDbSymbolTable::getAt(const ACHAR* name, AcDbObjectId& id, bool getErasedRecord) const {
    static_cast<void>(getErasedRecord);  // erasing is final in this host: erased records have no name any more
    if (name == nullptr) {
        return Acad::eInvalidInput;
    }
    id = store()->table_entry_named(kind_, name);
    return id.isNull() ? Acad::eKeyNotFound : Acad::eOk;
}

bool AcDbSymbolTable::has(const ACHAR* name) const {
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbSymbolTable::has(AcDbObjectId id) const {
    const host::DatabaseStore* const owner = store();
    return host::store_of(id) == owner && id.isValid() && !id.isErased() &&
           owner->owner(host::address_of(id)) == objectId();
}

Acad::ErrorStatus AcDbSymbolTable::open_at(const ACHAR* name, AcDbObject*& record, const AcRxClass* record_class,
                                           AcDb::OpenMode mode, bool open_erased) const {
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id, open_erased);
    return status == Acad::eOk ? acdbOpenAcDbObject(record, id, record_class, mode, open_erased) : status;
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbSymbolTableRecord* record) {
    AcDbObjectId id;
    return add(id, record);
}

Acad::ErrorStatus AcDbSymbolTable::add(AcDbObjectId& id, AcDbSymbolTableRecord* record) {
    id.setNull();
    if (record == nullptr) {
        return Acad::eNullObjectPointer;
    }
    if (!isWriteEnabled()) {
        return Acad::eNotOpenForWrite;
    }
    if (!host::ObjectGate::detached(*record)) {
        return Acad::eAlreadyInDb;
    }
    if (record->isA() != record_class()) {
        return Acad::eWrongObjectType;
    }
    if (record->name_.empty()) {
        return Acad::eInvalidInput;
    }
    if (has(record->name_.c_str())) {
        return Acad::eDuplicateRecordName;
    }
    const Acad::ErrorStatus status = kind_ == host::TableKind::blocks
                                         ? store()->add_block(static_cast<AcDbBlockTableRecord&>(*record))
                                         : store()->add_entry(kind_, *record);
    id = record->objectId();
    return status;
}

const AcRxClass* AcDbSymbolTable::record_class() const {
    switch (kind_) {
        case host::TableKind::blocks:
            return AcDbBlockTableRecord::desc();
        case host::TableKind::layers:
            return AcDbLayerTableRecord::desc();
        case host::TableKind::text_styles:
            break;
    }
    return AcDbTextStyleTableRecord::desc();
}

AcDbSymbolTableIterator::AcDbSymbolTableIterator(const AcDbSymbolTable& table, bool atBeginning, bool skipDeleted)
    : table_(table.objectId()), kind_(table.kind_) {
    start(atBeginning, skipDeleted);
}

host::DatabaseStore* AcDbSymbolTableIterator::store() const {
    return host::store_of(table_);
}

void AcDbSymbolTableIterator::start(bool atBeginning, bool skipDeleted) {
    const host::DatabaseStore* const owner = store();
    at_ = owner == nullptr ? -1 : atBeginning ? 0 : static_cast<long long>(owner->table_size(kind_)) - 1;
    settle(atBeginning ? 1 : -1, skipDeleted);
}

void AcDbSymbolTableIterator::step(bool forward, bool skipDeleted) {
    if (!done()) {
        at_ += forward ? 1 : -1;
        settle(forward ? 1 : -1, skipDeleted);
    }
}

void AcDbSymbolTableIterator::settle(int direction, bool skip_erased) {
    const host::DatabaseStore* const owner = store();
    const long long size = owner == nullptr ? 0 : static_cast<long long>(owner->table_size(kind_));
    while (at_ >= 0 && at_ < size && skip_erased && owner->table_entry(kind_, static_cast<size_t>(at_)).isErased()) {
        at_ += direction;
    }
    if (at_ >= size) {
        at_ = -1;
    }
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecordId(AcDbObjectId& id) const {
    const host::DatabaseStore* const owner = store();
    if (owner == nullptr || done()) {
        return Acad::eInvalidIndex;
    }
    id = owner->table_entry(kind_, static_cast<size_t>(at_));
    return Acad::eOk;
}

Acad::ErrorStatus AcDbSymbolTableIterator::open_record(AcDbObject*& record, const AcRxClass* record_class,
                                                       AcDb::OpenMode mode, bool open_erased) const {
    record = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getRecordId(id);
    return status == Acad::eOk ? acdbOpenAcDbObject(record, id, record_class, mode, open_erased) : status;
}

Acad::ErrorStatus AcDbSymbolTableIterator::getRecord(AcDbSymbolTableRecord*& record, AcDb::OpenMode mode,
                                                     bool openErasedRecord) const {
    AcDbObject* opened = nullptr;
    const Acad::ErrorStatus status = open_record(opened, AcDbSymbolTableRecord::desc(), mode, openErasedRecord);
    record = static_cast<AcDbSymbolTableRecord*>(opened);
    return status;
}

AcDbLayerTable::AcDbLayerTable() : AcDbTypedSymbolTable(host::TableKind::layers) {}

AcDbLayerTableRecord::AcDbLayerTableRecord() : fields_(std::make_shared<dxf::Layer>()) {}

bool AcDbLayerTableRecord::isFrozen() const {
    return (loaded(flags_) & dxf::Layer::frozen_flag) != 0;
}

bool AcDbLayerTableRecord::isOff() const {
    need_fields();
    return !fields_->on();
}

bool AcDbLayerTableRecord::isLocked() const {
    return (loaded(flags_) & dxf::Layer::locked_flag) != 0;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    return change_bits(flags_, dxf::Layer::frozen_flag, frozen);
}

/// A layer that is off has a negative colour. Colour 0, which no layer should have, has no negative form and becomes 7.
void AcDbLayerTableRecord::setIsOff(bool off) {
    need_fields();
    const int colour = fields_->colour == 0 ? 7 : std::abs(fields_->colour);
    change(fields_->colour, off ? -colour : colour);
}

void AcDbLayerTableRecord::setIsLocked(bool locked) {
    change_bits(flags_, dxf::Layer::locked_flag, locked);
}

void AcDbLayerTableRecord::read_fields(const dxf::RecordFields& from) {
    AcDbSymbolTableRecord::read_fields(from);
    dxf::read(from, *fields_);
}

void AcDbLayerTableRecord::write_fields(dxf::FieldWriter& to) const {
    fields_->name = name_;
    fields_->flags = flags_;
    to.begin(L"LAYER", L"AcDbSymbolTableRecord").subclass(L"AcDbLayerTableRecord");
    dxf::write(*fields_, to);
}

AcDbTextStyleTable::AcDbTextStyleTable() : AcDbTypedSymbolTable(host::TableKind::text_styles) {}

AcDbTextStyleTableRecord::AcDbTextStyleTableRecord() : fields_(std::make_shared<dxf::TextStyle>()) {}

Acad::ErrorStatus AcDbTextStyleTableRecord::setFileName(const ACHAR* file) {
    return file == nullptr ? Acad::eInvalidInput : change(fields_->font_file, file);
}

void AcDbTextStyleTableRecord::read_fields(const dxf::RecordFields& from) {
    AcDbSymbolTableRecord::read_fields(from);
    dxf::read(from, *fields_);
}

void AcDbTextStyleTableRecord::write_fields(dxf::FieldWriter& to) const {
    fields_->name = name_;
    fields_->flags = flags_;
    to.begin(L"STYLE", L"AcDbSymbolTableRecord").subclass(L"AcDbTextStyleTableRecord");
    dxf::write(*fields_, to);
}
