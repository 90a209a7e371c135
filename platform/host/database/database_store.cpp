#include "platform/host/database/database_store.h"

#include <algorithm>

#include "base/case_folding.h"
#include "dbents.h"
#include "platform/host/database/object_gate.h"

namespace host {
namespace {

constexpr unsigned most_readers = 256;
constexpr const char* table_names[] = {"BLOCK_RECORD", "LAYER", "STYLE"};
constexpr const wchar_t* implied_names[] = {L"0", L"Standard"};

/// Opens an object once more that is open already: any number of readers, or one writer.
Acad::ErrorStatus join(AcDbObject& open, const AcRxClass* wanted, AcDb::OpenMode mode) {
    if (ObjectGate::writing(open)) {
        return Acad::eWasOpenForWrite;
    }
    if (mode == AcDb::kForWrite) {
        return Acad::eWasOpenForRead;
    }
    if (!open.isKindOf(wanted)) {
        return Acad::eNotThatKindOfClass;
    }
    if (ObjectGate::readers(open) >= most_readers) {
        return Acad::eAtMaxReaders;
    }
    ObjectGate::add_reader(open);
    return Acad::eOk;
}

/// The classes that records of these types open as.
struct RecordClass {
    std::wstring_view type;
    AcRxClass* (*descriptor)();
};

constexpr RecordClass record_classes[] = {
    {L"INSERT", AcDbBlockReference::desc},
    {L"LINE", AcDbLine::desc},
    {L"TEXT", AcDbText::desc},
    {L"ATTDEF", AcDbAttributeDefinition::desc},
    {L"ATTRIB", AcDbAttribute::desc},
    {L"LAYER", AcDbLayerTableRecord::desc},
    {L"STYLE", AcDbTextStyleTableRecord::desc},
};

/// AcDbEntity for a type that has no class of its own.
AcRxClass* class_of_dxf_name(std::wstring_view type) {
    for (const RecordClass& known : record_classes) {
        if (known.type == type) {
            return known.descriptor();
        }
    }
    return AcDbEntity::desc();
}

AcRxClass* table_class(uint32_t kind) {
    switch (static_cast<TableKind>(kind)) {
        case TableKind::blocks:
            return AcDbBlockTable::desc();
        case TableKind::layers:
            return AcDbLayerTable::desc();
        case TableKind::text_styles:
            break;
    }
    return AcDbTextStyleTable::desc();
}

}  // namespace

DatabaseStore::DatabaseStore(std::unique_ptr<dxf::Drawing> drawing)
    : drawing_(std::move(drawing)),
      file_name_(drawing_->path().wstring()),
      has_subclasses_(drawing_->version() >= "AC1012"),
      blocks_(*drawing_),
      serial_(register_store(*this)),
      placements_(*drawing_) {
    implied_[implied_layer_0] = table_entry_named(TableKind::layers, L"0").isNull();
    implied_[implied_style_standard] = table_entry_named(TableKind::text_styles, L"Standard").isNull();
}

DatabaseStore::~DatabaseStore() {
    unregister_store(serial_);
}

AcDbObjectId DatabaseStore::id_of_block(BlockNumber block) const {
    return block == no_block_number ? AcDbObjectId() : id(ObjectSpace::block, block);
}

bool DatabaseStore::exists(ObjectAddress at) const {
    switch (at.space) {
        case ObjectSpace::record:
            return at.number < drawing_->record_count();
        case ObjectSpace::block:
            return at.number < blocks_.size();
        case ObjectSpace::table:
            return at.number <= static_cast<uint32_t>(TableKind::text_styles);
        case ObjectSpace::implied:
            return at.number <= implied_style_standard && implied_[at.number];
    }
    return false;
}

bool DatabaseStore::erased(ObjectAddress at) const {
    if (!exists(at)) {
        return false;
    }
    return at.space == ObjectSpace::record  ? drawing_->record(at.number).is(dxf::Record::erased)
           : at.space == ObjectSpace::block ? blocks_.erased(at.number)
                                            : false;
}

AcRxClass* DatabaseStore::class_of(ObjectAddress at) const {
    switch (at.space) {
        case ObjectSpace::record:
            return class_of_record(at.number);
        case ObjectSpace::block:
            return AcDbBlockTableRecord::desc();
        case ObjectSpace::table:
            return table_class(at.number);
        case ObjectSpace::implied:
            break;
    }
    return at.number == implied_layer_0 ? AcDbLayerTableRecord::desc() : AcDbTextStyleTableRecord::desc();
}

AcRxClass* DatabaseStore::class_of_record(dxf::RecordId record) const {
    const uint16_t type = drawing_->record(record).type;
    if (type >= class_of_type_.size()) {
        class_of_type_.resize(drawing_->type_names().size(), nullptr);
    }
    AcRxClass*& known = class_of_type_[type];
    if (known == nullptr) {
        known = class_of_dxf_name(drawing_->type_names().name(type));
    }
    if (type == dxf::type_insert && drawing_->record(record).is(dxf::Record::array)) {
        return AcDbMInsertBlock::desc();
    }
    if (known == AcDbEntity::desc() && owner({ObjectSpace::record, record}).isNull()) {
        return AcDbObject::desc();  // only an entity has an owner; other types are told from it by that
    }
    return known;
}

Acad::ErrorStatus DatabaseStore::open(AcDbObject*& object, AcDbObjectId id, const AcRxClass* wanted,
                                      AcDb::OpenMode mode, bool open_erased) {
    const ObjectAddress at = address_of(id);
    if (!exists(at)) {
        return Acad::eUnknownHandle;
    }
    if (!open_erased && erased(at)) {
        return Acad::eWasErased;
    }
    if (mode != AcDb::kForRead && mode != AcDb::kForWrite) {
        return Acad::eInvalidInput;
    }
    if (AcDbObject* const open = open_.at(at)) {
        const Acad::ErrorStatus status = join(*open, wanted, mode);
        object = status == Acad::eOk ? open : nullptr;
        return status;
    }
    AcRxClass* const type = class_of(at);
    if (!type->isDerivedFrom(wanted)) {
        return Acad::eNotThatKindOfClass;
    }
    if (at.space == ObjectSpace::implied && mode == AcDb::kForWrite) {
        return Acad::eIsWriteProtected;
    }
    std::unique_ptr<AcDbObject> instance = make_instance(at, type);
    ObjectGate::attach(*instance, id, mode);
    open_.put(at, *instance);
    object = instance.release();
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> DatabaseStore::make_instance(ObjectAddress at, AcRxClass* type) const {
    std::unique_ptr<AcDbObject> instance(static_cast<AcDbObject*>(type->create()));
    if (at.space == ObjectSpace::implied) {
        static_cast<AcDbSymbolTableRecord&>(*instance).name_ = implied_names[at.number];
    }
    return instance;
}

void DatabaseStore::load(AcDbObject& object) {
    const ObjectAddress at = address_of(object.objectId());
    dxf::RecordId record = dxf::no_record;
    if (at.space == ObjectSpace::record) {
        record = at.number;
    } else if (at.space == ObjectSpace::block && blocks_.block(at.number) != dxf::no_block) {
        record = drawing_->blocks()[blocks_.block(at.number)].head;
    }
    if (record != dxf::no_record) {
        fields_.read(drawing_->view(record));
        ObjectGate::read(object, fields_);
    }
}

const dxf::Table* DatabaseStore::table(TableKind kind) const {
    return drawing_->table(table_names[static_cast<size_t>(kind)]);
}

size_t DatabaseStore::table_size(TableKind kind) const {
    if (kind == TableKind::blocks) {
        return blocks_.size();
    }
    const dxf::Table* const entries = table(kind);
    const ImpliedObject standing_in = kind == TableKind::layers ? implied_layer_0 : implied_style_standard;
    return (entries == nullptr ? 0 : entries->entries.size()) + (implied(standing_in) ? 1 : 0);
}

AcDbObjectId DatabaseStore::table_entry(TableKind kind, size_t index) const {
    if (kind == TableKind::blocks) {
        return id_of_block(static_cast<BlockNumber>(index));
    }
    const ImpliedObject standing_in = kind == TableKind::layers ? implied_layer_0 : implied_style_standard;
    if (implied(standing_in) && index-- == 0) {
        return id(ObjectSpace::implied, standing_in);
    }
    return id_of_record(table(kind)->entries[index]);
}

AcDbObjectId DatabaseStore::table_entry_named(TableKind kind, std::wstring_view name) const {
    if (kind == TableKind::blocks) {
        return id_of_block(blocks_.named(name));
    }
    const dxf::RecordId record = drawing_->table_entry(table_names[static_cast<size_t>(kind)], name);
    if (record != dxf::no_record) {
        return id_of_record(record);
    }
    const ImpliedObject standing_in = kind == TableKind::layers ? implied_layer_0 : implied_style_standard;
    const bool stands_in = implied(standing_in) && base::compare_ignoring_case(name, implied_names[standing_in]) == 0;
    return stands_in ? id(ObjectSpace::implied, standing_in) : AcDbObjectId();
}

std::wstring DatabaseStore::entry_name(TableKind kind, AcDbObjectId id) const {
    const ObjectAddress at = address_of(id);
    AcRxClass* const wanted =
        kind == TableKind::layers ? AcDbLayerTableRecord::desc() : AcDbTextStyleTableRecord::desc();
    if (store_of(id) != this || !exists(at) || class_of(at) != wanted) {
        return {};
    }
    return at.space == ObjectSpace::implied ? implied_names[at.number] : drawing_->view(at.number).text(2);
}

std::wstring DatabaseStore::current_layer() const {
    const dxf::RecordId record = drawing_->header_variable("$CLAYER");
    const std::wstring name = record == dxf::no_record ? std::wstring() : drawing_->view(record).text(8);
    return name.empty() ? L"0" : name;
}

int DatabaseStore::current_colour() const {
    constexpr int by_layer = 256;
    const dxf::RecordId record = drawing_->header_variable("$CECOLOR");
    return added_colour_.value_or(
        record == dxf::no_record ? by_layer : static_cast<int>(drawing_->view(record).integer(62, by_layer)));
}

bool DatabaseStore::tilemode() const {
    const dxf::RecordId variable = drawing_->header_variable("$TILEMODE");
    return variable == dxf::no_record || drawing_->view(variable).integer(70, 1) != 0;
}

BlockNumber DatabaseStore::current_space() const {
    return tilemode() ? model_space_number : paper_space_number;
}

}  // namespace host
