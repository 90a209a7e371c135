// Additions to the drawing, changes and erasures.
#include <utility>

#include "dbents.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/object_gate.h"
#include "platform/host/database/vectors.h"
#include "platform/host/dxf/entities.h"
#include "platform/host/dxf/field_writer.h"

namespace host {
namespace {

/// The layer that every drawing must have.
constexpr wchar_t layer_zero[] = L"0";
constexpr std::string_view first_version_with_block_units = "AC1021";

}  // namespace

Acad::ErrorStatus DatabaseStore::add_entity(BlockNumber block, AcDbEntity& entity) {
    const dxf::BlockId definition = blocks_.block(block);
    const bool in_space = blocks_.is_space(block);
    if (!in_space && definition == dxf::no_block) {
        return Acad::eInvalidInput;
    }
    ObjectGate::settle_space(entity, block == paper_space_number, current_layer());
    ObjectGate::settle_colour(entity, current_colour());
    dxf::FieldWriter fields = new_fields({drawing_->allocate_handle(), block_handle(block)});
    ObjectGate::write(entity, fields);
    const dxf::RecordId record =
        in_space ? drawing_->append_entity(encoded(fields)) : drawing_->append_to_block(definition, encoded(fields));
    added_to_[record] = block;
    const AcDbObjectId id = id_of_record(record);
    ObjectGate::attach_added(entity, id);
    open_.put(address_of(id), entity);
    index_handle(id);
    return Acad::eOk;
}

Acad::ErrorStatus DatabaseStore::add_block(AcDbBlockTableRecord& record) {
    // An erased block of that name still occupies the name in the drawing.
    if (drawing_->block_named(drawing_->block_names().find(record.name_)) != dxf::no_block) {
        return Acad::eDuplicateRecordName;
    }
    const uint64_t table_handle = handle(address_of(id_of_table(TableKind::blocks)));
    const uint64_t entry_handle = has_subclasses_ ? drawing_->allocate_handle() : 0;
    dxf::FieldWriter head = new_fields({drawing_->allocate_handle(), entry_handle});
    head.begin(L"BLOCK", L"AcDbEntity").text(8, layer_zero).subclass(L"AcDbBlockBegin");
    dxf::write(dxf::BlockHead{{record.name_, record.flags_}, vector_of(record.origin_)}, head);
    head.text(3, record.name_).text(1, L"");
    dxf::FieldWriter end = new_fields({drawing_->allocate_handle(), entry_handle});
    end.begin(L"ENDBLK", L"AcDbEntity").text(8, layer_zero).subclass(L"AcDbBlockEnd");
    const dxf::BlockId definition = drawing_->append_block(encoded(head), encoded(end));
    if (has_subclasses_) {
        dxf::FieldWriter entry = new_fields({entry_handle, table_handle});
        entry.begin(L"BLOCK_RECORD", L"AcDbSymbolTableRecord").subclass(L"AcDbBlockTableRecord");
        entry.text(2, record.name_).handle(340, 0);
        if (drawing_->version() >= first_version_with_block_units) {
            entry.integer(70, 0).integer(280, 1).integer(281, 0);
        }
        drawing_->append_entry("BLOCK_RECORD", encoded(entry));
    }
    const AcDbObjectId id = id_of_block(blocks_.add(definition));
    block_handles_.clear();
    index_handle(id);
    ObjectGate::attach_added(record, id);
    open_.put(address_of(id), record);
    return Acad::eOk;
}

Acad::ErrorStatus DatabaseStore::add_entry(TableKind kind, AcDbSymbolTableRecord& record) {
    dxf::FieldWriter fields = new_fields({drawing_->allocate_handle(), handle(address_of(id_of_table(kind)))});
    ObjectGate::write(record, fields);
    const dxf::RecordId entry = drawing_->append_entry(kind == TableKind::layers ? "LAYER" : "STYLE", encoded(fields));
    const AcDbObjectId id = id_of_record(entry);
    index_handle(id);
    ObjectGate::attach_added(record, id);
    open_.put(address_of(id), record);
    return Acad::eOk;
}

std::string DatabaseStore::encode_attribute(const AcDbAttribute& attribute, AcDbObjectId reference) {
    dxf::FieldWriter fields = new_fields({drawing_->allocate_handle(), handle(address_of(reference))});
    ObjectGate::write(attribute, fields);
    return encoded(fields);
}

std::string DatabaseStore::encode_sequence_end(const AcDbEntity& reference) {
    dxf::FieldWriter fields = new_fields({drawing_->allocate_handle(), handle(address_of(reference.objectId()))});
    fields.begin(L"SEQEND", L"AcDbEntity").text(8, ObjectGate::layer(reference));
    return encoded(fields);
}

void DatabaseStore::write_back(const AcDbObject& object) {
    const ObjectAddress at = address_of(object.objectId());
    if (at.space != ObjectSpace::record || erased(at)) {
        return;
    }
    dxf::FieldWriter fields = new_fields(identity(at));
    ObjectGate::write(object, fields);
    replace(at.number, object.isNewObject() ? encoded(fields) : merged(at.number, fields));
}

std::string DatabaseStore::merged(dxf::RecordId record, const dxf::FieldWriter& fields) const {
    return dxf::merge_fields(drawing_->view(record), fields.fields(), drawing_->manner());
}

void DatabaseStore::replace(dxf::RecordId record, std::string bytes) {
    if (bytes != drawing_->view(record).bytes()) {
        drawing_->rewrite(record, std::move(bytes));
    }
}

void DatabaseStore::write_block_head(BlockNumber block, int flags, const dxf::Vec3& base) {
    const dxf::BlockId definition = blocks_.block(block);
    if (definition == dxf::no_block) {
        return;
    }
    const dxf::RecordId head = drawing_->blocks()[definition].head;
    dxf::FieldWriter fields = new_fields({});
    fields.begin(L"BLOCK", L"AcDbEntity").subclass(L"AcDbBlockBegin");
    dxf::write(dxf::BlockHead{{drawing_->view(head).text(2), flags}, base}, fields);
    replace(head, merged(head, fields));
}

Acad::ErrorStatus DatabaseStore::erase(ObjectAddress at) {
    switch (at.space) {
        case ObjectSpace::record: {
            const std::wstring& type = drawing_->type_names().name(drawing_->record(at.number).type);
            const std::wstring name = type == L"LAYER" ? drawing_->view(at.number).text(2) : std::wstring();
            if (name == layer_zero ||
                (!name.empty() && table_entry_named(TableKind::layers, current_layer()) == id_of_record(at.number))) {
                return Acad::eCannotBeErasedByCaller;
            }
            drawing_->erase(at.number);
            return Acad::eOk;
        }
        case ObjectSpace::block:
            if (blocks_.is_layout(at.number)) {
                return Acad::eCannotBeErasedByCaller;
            }
            erase_block(at.number);
            return Acad::eOk;
        case ObjectSpace::table:
        case ObjectSpace::implied:
            break;
    }
    return Acad::eCannotBeErasedByCaller;
}

void DatabaseStore::erase_block(BlockNumber block) {
    if (const dxf::RecordId entry = has_subclasses_ ? block_record(block) : dxf::no_record; entry != dxf::no_record) {
        drawing_->erase(entry);
    }
    const dxf::Block definition = drawing_->blocks()[blocks_.block(block)];
    for (const dxf::RecordId entity : definition.entities) {
        if (!drawing_->record(entity).is(dxf::Record::erased)) {
            drawing_->erase(entity);
        }
    }
    drawing_->erase(definition.head);
    if (definition.end_record != dxf::no_record) {
        drawing_->erase(definition.end_record);
    }
}

}  // namespace host
