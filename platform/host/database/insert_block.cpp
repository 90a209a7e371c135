#include "platform/host/database/insert_block.h"

#include <memory>

#include "dbobjptr.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"

namespace host {
namespace {

Acad::ErrorStatus add_attributes(AcDbBlockReference& reference, const AcDbBlockTableRecord& block) {
    const AcGeMatrix3d transform = reference.blockTransform();
    AcDbBlockTableRecordIterator* walk = nullptr;
    Acad::ErrorStatus status = block.newIterator(walk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(walk);
    for (; status == Acad::eOk && !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        iterator->getEntityId(id);
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id, AcDb::kForRead);
        if (definition.openStatus() != Acad::eOk || definition->isConstant()) {
            continue;
        }
        auto attribute = std::make_unique<AcDbAttribute>();
        attribute->setAttributeFromBlock(definition, transform);
        status = reference.appendAttribute(attribute.get());
        if (status == Acad::eOk) {
            status = attribute.release()->close();
        }
    }
    return status;
}

}  // namespace

Acad::ErrorStatus insert_block(AcDbDatabase& database, const ACHAR* block, const Insertion& insertion,
                               AcDbObjectId& reference) {
    reference.setNull();
    const AcDbObjectId block_id = database.store().table_entry_named(TableKind::blocks, block);
    if (block_id.isNull()) {
        return Acad::eKeyNotFound;
    }
    auto inserted = std::make_unique<AcDbBlockReference>(insertion.position, block_id);
    Acad::ErrorStatus status = inserted->setScaleFactors(insertion.scale);
    if (status != Acad::eOk) {
        return status;
    }
    inserted->setRotation(insertion.rotation);
    const AcDbObjectPointer<AcDbBlockTableRecord> space(database.currentSpaceId(), AcDb::kForWrite);
    if (space.openStatus() != Acad::eOk) {
        return space.openStatus();
    }
    status = space->appendAcDbEntity(reference, inserted.get());
    if (status != Acad::eOk) {
        return status;
    }
    AcDbBlockReference& added = *inserted.release();
    const AcDbObjectPointer<AcDbBlockTableRecord> definition(block_id, AcDb::kForRead);
    status = definition.openStatus() == Acad::eOk ? add_attributes(added, *definition) : definition.openStatus();
    const Acad::ErrorStatus closed = added.close();
    return status == Acad::eOk ? closed : status;
}

}  // namespace host
