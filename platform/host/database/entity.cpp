#include "dbents.h"

#include "acutmem.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/vectors.h"
#include "platform/host/dxf/field_writer.h"

namespace {

/// What an entity of another kind than the known ones opens as.
class PlainEntity final : public AcDbEntity {};

constexpr Adesk::UInt16 by_layer = 256;

}  // namespace

ACRX_DEFINE_MEMBERS_WITH(AcDbEntity, AcDbObject, nullptr, []() -> AcRxObject* { return new PlainEntity; })
ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbEntity, 0, 0, 0, LINE, 0)

ACHAR* AcDbEntity::layer() const {
    return acad__strdup(loaded(layer_).c_str());
}

void AcDbEntity::copy_properties(const AcDbEntity& other) {
    layer_ = other.layer_;
    color_ = other.color_;
    invisible_ = other.invisible_;
}

const ACHAR* AcDbEntity::record_type() const {
    return isA()->dxfName() == nullptr ? ACRX_T("") : isA()->dxfName();
}

void AcDbEntity::read_fields(const dxf::RecordFields& from) {
    layer_ = from.text(8, L"0");
    color_ = static_cast<Adesk::UInt16>(from.integer(62, by_layer));
    invisible_ = from.integer(60) != 0;
    paper_space_ = from.integer(67) != 0;
}

void AcDbEntity::write_fields(dxf::FieldWriter& to) const {
    to.begin(record_type(), L"AcDbEntity").integer(67, paper_space_ ? 1 : 0, 0);
    to.text(8, layer_, L"0", dxf::Field::Presence::always).integer(62, color_.value_or(by_layer), by_layer);
    to.integer(60, invisible_ ? 1 : 0, 0);
}

void AcDbLine::read_fields(const dxf::RecordFields& from) {
    AcDbEntity::read_fields(from);
    start_ = host::point_of(from.point(10));
    end_ = host::point_of(from.point(11));
}

void AcDbLine::write_fields(dxf::FieldWriter& to) const {
    AcDbEntity::write_fields(to);
    to.subclass(L"AcDbLine").point(10, host::vector_of(start_)).point(11, host::vector_of(end_));
}
