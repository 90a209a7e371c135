#include "platform/host/database/insert_block.h"

#include <memory>

#include "acutmem.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"

namespace host {
namespace {

/// Calls visit(definition) for each that a reference gets an attribute for, until one does not give eOk.
template <typename Visit>
Acad::ErrorStatus visit_definitions(const AcDbBlockTableRecord& block, Visit visit) {
    AcDbBlockTableRecordIterator* walk = nullptr;
    Acad::ErrorStatus status = block.newIterator(walk);
    const std::unique_ptr<AcDbBlockTableRecordIterator> iterator(walk);
    for (; status == Acad::eOk && !iterator->done(); iterator->step()) {
        AcDbObjectId id;
        iterator->getEntityId(id);
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id, AcDb::kForRead);
        if (definition.openStatus() == Acad::eOk && !definition->isConstant()) {
            status = visit(*definition);
        }
    }
    return status;
}

Acad::ErrorStatus add_attributes(AcDbBlockReference& reference, const AcDbBlockTableRecord& block,
                                 const std::vector<AttributeValue>& values) {
    const AcGeMatrix3d transform = reference.blockTransform();
    size_t number = 0;
    return visit_definitions(block, [&](const AcDbAttributeDefinition& definition) {
        auto attribute = std::make_unique<AcDbAttribute>();
        attribute->setAttributeFromBlock(&definition, transform);
        if (number < values.size()) {
            attribute->setTextString(values[number].text.c_str());
        }
        ++number;
        const Acad::ErrorStatus status = reference.appendAttribute(attribute.get());
        return status == Acad::eOk ? attribute.release()->close() : status;
    });
}

std::wstring taken(ACHAR* text) {
    const std::unique_ptr<ACHAR, decltype(&acad_free)> owner(text, acad_free);
    return owner != nullptr ? owner.get() : L"";
}

}  // namespace

std::vector<AttributeValue> attributes_of_block(AcDbDatabase& database, const ACHAR* block) {
    std::vector<AttributeValue> values;
    const AcDbObjectPointer<AcDbBlockTableRecord> record(database.store().table_entry_named(TableKind::blocks, block),
                                                         AcDb::kForRead);
    if (record.openStatus() == Acad::eOk) {
        visit_definitions(*record, [&values](const AcDbAttributeDefinition& definition) {
            const std::wstring prompt = taken(definition.prompt());
            values.push_back({prompt.empty() ? taken(definition.tag()) : prompt, taken(definition.textString()),
                              definition.isPreset()});
            return Acad::eOk;
        });
    }
    return values;
}

Acad::ErrorStatus insert_block(AcDbDatabase& database, const ACHAR* block, const Insertion& insertion,
                               AcDbObjectId& reference, const std::vector<AttributeValue>& values) {
    reference.setNull();
    const AcDbObjectId block_id = database.store().table_entry_named(TableKind::blocks, block);
    if (block_id.isNull()) {
        return Acad::eKeyNotFound;
    }
    const AcDbObjectPointer<AcDbBlockTableRecord> definition(block_id, AcDb::kForRead);
    if (definition.openStatus() != Acad::eOk) {
        return definition.openStatus();
    }
    if (definition->isLayout()) {
        return Acad::eInvalidInput;
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
    status = add_attributes(added, *definition, values);
    if (status != Acad::eOk) {
        added.erase();
        reference.setNull();
    }
    const Acad::ErrorStatus closed = added.close();
    return status == Acad::eOk ? closed : status;
}

}  // namespace host
