#include "dblyrtbl.h"

#include <cstdlib>

#include "platform/host/database/database_store.h"
#include "platform/host/database/field_writer.h"

ACRX_CONS_DEFINE_MEMBERS(AcDbLayerTable, AcDbSymbolTable, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbLayerTableRecord, AcDbSymbolTableRecord, 0, 0, 0, LAYER, 0)

namespace {

constexpr int frozen_bit = 1;
constexpr int locked_bit = 4;

}  // namespace

AcDbLayerTable::AcDbLayerTable() : AcDbTypedSymbolTable(host::TableKind::layers) {}

bool AcDbLayerTableRecord::flag(int bit) const {
    need_fields();
    return (flags_ & bit) != 0;
}

Acad::ErrorStatus AcDbLayerTableRecord::set_flag(int bit, bool set) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        flags_ = set ? flags_ | bit : flags_ & ~bit;
    }
    return status;
}

bool AcDbLayerTableRecord::isFrozen() const {
    return flag(frozen_bit);
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool frozen) {
    const host::DatabaseStore* const owner = store();
    if (frozen && owner != nullptr &&
        owner->table_entry_named(host::TableKind::layers, owner->current_layer()) == id()) {
        return Acad::eInvalidLayer;
    }
    return set_flag(frozen_bit, frozen);
}

bool AcDbLayerTableRecord::isOff() const {
    need_fields();
    return color_ < 0;
}

void AcDbLayerTableRecord::setIsOff(bool off) {
    if (begin_change() == Acad::eOk) {
        color_ = off ? -std::abs(color_) : std::abs(color_);
    }
}

bool AcDbLayerTableRecord::isLocked() const {
    return flag(locked_bit);
}

void AcDbLayerTableRecord::setIsLocked(bool locked) {
    set_flag(locked_bit, locked);
}

Adesk::UInt16 AcDbLayerTableRecord::colorIndex() const {
    need_fields();
    return static_cast<Adesk::UInt16>(std::abs(color_));
}

Acad::ErrorStatus AcDbLayerTableRecord::setColorIndex(Adesk::UInt16 color) {
    if (color < 1 || color > 255) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        color_ = color_ < 0 ? -color : color;
    }
    return status;
}

void AcDbLayerTableRecord::read_fields(const host::FieldReader& from) {
    AcDbSymbolTableRecord::read_fields(from);
    color_ = from.integer(62, 7);
    line_type_ = from.text(6, L"CONTINUOUS");
}

void AcDbLayerTableRecord::write_fields(host::FieldWriter& to) const {
    to.begin(L"LAYER", L"AcDbSymbolTableRecord").subclass(L"AcDbLayerTableRecord");
    to.text(2, name_).integer(70, flags_).integer(62, color_).text(6, line_type_);
}
