#include "dbents.h"
#include "platform/host/database/vectors.h"
#include "platform/host/dxf/field_writer.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbEntity, 0, 0, 0, LINE, 0)

void AcDbLine::read_fields(const dxf::RecordFields& from) {
    AcDbEntity::read_fields(from);
    start_ = host::point_of(from.point(10));
    end_ = host::point_of(from.point(11));
}

void AcDbLine::write_fields(dxf::FieldWriter& to) const {
    AcDbEntity::write_fields(to);
    to.subclass(L"AcDbLine").point(10, host::vector_of(start_)).point(11, host::vector_of(end_));
}
