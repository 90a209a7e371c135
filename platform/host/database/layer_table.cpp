#include "dbsymtb.h"

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

/// Off is a colour below 0; there is no such form of colour 0, which no layer should have.
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
