#include "dbentity.h"

#include "acutmem.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/field_writer.h"

namespace {

/// What an entity of another kind than the known ones opens as.
class PlainEntity final : public AcDbEntity {};

constexpr Adesk::UInt16 by_layer = 256;

}  // namespace

ACRX_DEFINE_MEMBERS_WITH(AcDbEntity, AcDbObject, nullptr, []() -> AcRxObject* { return new PlainEntity; })

ACHAR* AcDbEntity::layer() const {
    need_fields();
    return acad__strdup(layer_.c_str());
}

AcDbObjectId AcDbEntity::layerId() const {
    need_fields();
    const host::DatabaseStore* const owner = store();
    return owner == nullptr ? AcDbObjectId() : owner->table_entry_named(host::TableKind::layers, layer_);
}

Acad::ErrorStatus AcDbEntity::setLayer(const ACHAR* name) {
    const host::DatabaseStore* const owner = store();
    if (name == nullptr || *name == 0) {
        return Acad::eInvalidInput;
    }
    if (owner != nullptr && owner->table_entry_named(host::TableKind::layers, name).isNull()) {
        return Acad::eKeyNotFound;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        layer_ = name;
    }
    return status;
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId layer) {
    const host::DatabaseStore* const of_layer = host::store_of(layer);
    const std::wstring name =
        of_layer == nullptr ? std::wstring() : of_layer->entry_name(host::TableKind::layers, layer);
    return setLayer(name.c_str());
}

Adesk::UInt16 AcDbEntity::colorIndex() const {
    need_fields();
    return color_;
}

Acad::ErrorStatus AcDbEntity::setColorIndex(Adesk::UInt16 color) {
    if (color > by_layer) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        color_ = color;
    }
    return status;
}

AcDb::Visibility AcDbEntity::visibility() const {
    need_fields();
    return visibility_;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        visibility_ = visibility;
    }
    return status;
}

void AcDbEntity::copy_properties(const AcDbEntity& other) {
    layer_ = other.layer_;
    color_ = other.color_;
    visibility_ = other.visibility_;
}

const ACHAR* AcDbEntity::record_type() const {
    return isA()->dxfName() == nullptr ? ACRX_T("") : isA()->dxfName();
}

void AcDbEntity::read_fields(const host::FieldReader& from) {
    layer_ = from.text(8, L"0");
    color_ = static_cast<Adesk::UInt16>(from.integer(62, by_layer));
    visibility_ = from.integer(60) != 0 ? AcDb::kInvisible : AcDb::kVisible;
    paper_space_ = from.integer(67) != 0;
}

void AcDbEntity::write_fields(host::FieldWriter& to) const {
    to.begin(record_type(), L"AcDbEntity");
    to.integer(67, paper_space_ ? 1 : 0, 0)
        .text(8, layer_, L"0", host::Field::Presence::always)
        .integer(62, color_, by_layer);
    to.integer(60, visibility_, AcDb::kVisible);
}
