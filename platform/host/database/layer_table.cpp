#include "dblyrtbl.h"

#include <cstdlib>

#include "platform/host/database/database_store.h"
#include "platform/host/dxf/entities.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, 0)

AcDbLayerTable::AcDbLayerTable() : AcDbTypedSymbolTable(host::TableKind::layers) {}

AcDbLayerTableRecord::AcDbLayerTableRecord() : fields_(std::make_shared<dxf::Layer>()) {}

bool AcDbLayerTableRecord::isFrozen() const {
    return (loaded(flags_) & dxf::Layer::frozen_flag) != 0;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    const host::DatabaseStore* const owner = store();
    if (frozen && owner != nullptr &&
        owner->table_entry_named(host::TableKind::layers, owner->current_layer()) == id()) {
        return Acad::eInvalidLayer;
    }
    return change_bits(flags_, dxf::Layer::frozen_flag, frozen);
}

bool AcDbLayerTableRecord::isOff() const {
    return !loaded(*fields_).on();
}

void AcDbLayerTableRecord::setIsOff(bool off) {
    const int colour = std::abs(loaded(fields_->colour));
    change(fields_->colour, off ? -colour : colour);
}

bool AcDbLayerTableRecord::isLocked() const {
    return (loaded(flags_) & dxf::Layer::locked_flag) != 0;
}

void AcDbLayerTableRecord::setIsLocked(bool locked) {
    change_bits(flags_, dxf::Layer::locked_flag, locked);
}

Adesk::UInt16 AcDbLayerTableRecord::colorIndex() const {
    return static_cast<Adesk::UInt16>(std::abs(loaded(fields_->colour)));
}

Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::UInt16 color) {
    if (color < 1 || color > 255) {
        return Acad::eInvalidInput;
    }
    return change(fields_->colour, loaded(*fields_).on() ? color : -color);
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
