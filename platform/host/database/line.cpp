#include "dbents.h"
#include "platform/host/database/field_writer.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbEntity, 0, 0, 0, LINE, 0)

AcGePoint3d AcDbLine::startPoint() const {
    need_fields();
    return start_;
}

AcGePoint3d AcDbLine::endPoint() const {
    need_fields();
    return end_;
}

Acad::ErrorStatus AcDbLine::setStartPoint(const AcGePoint3d& point) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        start_ = point;
    }
    return status;
}

Acad::ErrorStatus AcDbLine::setEndPoint(const AcGePoint3d& point) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        end_ = point;
    }
    return status;
}

void AcDbLine::read_fields(const host::FieldReader& from) {
    AcDbEntity::read_fields(from);
    start_ = from.point(10);
    end_ = from.point(11);
}

void AcDbLine::write_fields(host::FieldWriter& to) const {
    AcDbEntity::write_fields(to);
    to.subclass(L"AcDbLine").point(10, start_).point(11, end_);
}
