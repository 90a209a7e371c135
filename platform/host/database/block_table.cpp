#include "dbsymtb.h"

#include "dbents.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/object_gate.h"
#include "platform/host/database/vectors.h"
#include "platform/host/dxf/entities.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTable, AcDbSymbolTable, 0)
ACRX_CONS_DEFINE_MEMBERS(AcDbBlockTableRecord, AcDbSymbolTableRecord, 0)

namespace {

constexpr int attributes_bit = 2;

}  // namespace

AcDbBlockTable::AcDbBlockTable() : AcDbTypedSymbolTable(host::TableKind::blocks) {}

const std::wstring& AcDbBlockTableRecord::stored_name() const {
    const host::DatabaseStore* const owner = store();
    return owner == nullptr ? name_ : owner->blocks().name(host::address_of(objectId()).number);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbEntity* entity) {
    AcDbObjectId id;
    return appendAcDbEntity(id, entity);
}

Acad::ErrorStatus AcDbBlockTableRecord::appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity) {
    id.setNull();
    if (entity == nullptr) {
        return Acad::eNullEntityPointer;
    }
    if (store() == nullptr) {
        return Acad::eNoDatabase;
    }
    if (!host::ObjectGate::detached(*entity)) {
        return Acad::eAlreadyInDb;
    }
    if (entity->isA()->dxfName() == nullptr) {
        return Acad::eIllegalEntityType;
    }
    const Acad::ErrorStatus writable = begin_change();
    if (writable != Acad::eOk) {
        return writable;
    }
    if (entity->isKindOf(AcDbAttributeDefinition::desc())) {
        flags_ |= attributes_bit;
    }
    const Acad::ErrorStatus status = store()->add_entity(host::address_of(objectId()).number, *entity);
    id = entity->objectId();
    return status;
}

Acad::ErrorStatus AcDbBlockTableRecord::newIterator(AcDbBlockTableRecordIterator*& iterator, bool atBeginning,
                                                    bool skipDeleted) const {
    iterator = nullptr;
    if (store() == nullptr) {
        return Acad::eNoDatabase;
    }
    iterator = new AcDbBlockTableRecordIterator(objectId(), atBeginning, skipDeleted);
    return Acad::eOk;
}

AcGePoint3d AcDbBlockTableRecord::origin() const {
    return loaded(origin_);
}

Acad::ErrorStatus AcDbBlockTableRecord::setOrigin(const AcGePoint3d& point) {
    return change(origin_, point);
}

bool AcDbBlockTableRecord::isLayout() const {
    const host::DatabaseStore* const owner = store();
    return owner != nullptr && owner->blocks().is_layout(host::address_of(objectId()).number);
}

void AcDbBlockTableRecord::read_fields(const dxf::RecordFields& from) {
    AcDbSymbolTableRecord::read_fields(from);
    origin_ = host::point_of(dxf::read<dxf::BlockHead>(from).base);
}

void AcDbBlockTableRecord::flush() {
    if (isModified() && !isErased()) {
        store()->write_block_head(host::address_of(objectId()).number, flags_, host::vector_of(origin_));
    }
}

AcDbBlockTableRecordIterator::AcDbBlockTableRecordIterator(AcDbObjectId block, bool atBeginning, bool skipDeleted)
    : block_(block) {
    start(atBeginning, skipDeleted);
}

host::DatabaseStore* AcDbBlockTableRecordIterator::store() const {
    return host::store_of(block_);
}

void AcDbBlockTableRecordIterator::start(bool atBeginning, bool skipDeleted) {
    const host::DatabaseStore* const owner = store();
    const host::BlockNumber block = host::address_of(block_).number;
    at_ = owner == nullptr ? -1 : atBeginning ? 0 : static_cast<long long>(owner->blocks().slots(block)) - 1;
    settle(atBeginning ? 1 : -1, skipDeleted);
}

void AcDbBlockTableRecordIterator::step(bool forward, bool skipDeleted) {
    if (!done()) {
        at_ += forward ? 1 : -1;
        settle(forward ? 1 : -1, skipDeleted);
    }
}

void AcDbBlockTableRecordIterator::settle(int direction, bool skip_erased) {
    const host::DatabaseStore* const owner = store();
    const host::BlockNumber block = host::address_of(block_).number;
    const long long size = owner == nullptr ? 0 : static_cast<long long>(owner->blocks().slots(block));
    while (at_ >= 0 && at_ < size &&
           !owner->blocks().holds(block, owner->blocks().at(block, static_cast<size_t>(at_)), skip_erased)) {
        at_ += direction;
    }
    if (at_ >= size) {
        at_ = -1;
    }
}

Acad::ErrorStatus AcDbBlockTableRecordIterator::getEntityId(AcDbObjectId& id) const {
    const host::DatabaseStore* const owner = store();
    if (owner == nullptr || done()) {
        return Acad::eInvalidIndex;
    }
    id = owner->id_of_record(owner->blocks().at(host::address_of(block_).number, static_cast<size_t>(at_)));
    return Acad::eOk;
}
