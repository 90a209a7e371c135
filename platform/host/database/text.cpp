#include <cmath>

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/vectors.h"
#include "platform/host/dxf/entities.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, 0, 0, 0, TEXT, 0)

AcDbText::AcDbText() : AcDbText(dxf::TextKind::text, {}, nullptr, {}) {}

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation)
    : AcDbText(dxf::TextKind::text, position, text, style) {
    fields_->height = height > 0 ? height : fields_->height;
    fields_->rotation = rotation;
}

AcDbText::AcDbText(dxf::TextKind kind, const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style)
    : fields_(std::make_shared<dxf::Text>()) {
    fields_->kind = kind;
    fields_->position = host::vector_of(position);
    fields_->value = text == nullptr ? ACRX_T("") : text;
    setTextStyle(style);
}

AcGePoint3d AcDbText::position() const {
    return host::point_of(loaded(fields_->position));
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& point) {
    return change(fields_->position, host::vector_of(point));
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point) {
    return loaded(*fields_).justified() ? change(fields_->alignment, host::vector_of(point)) : Acad::eNotApplicable;
}

double AcDbText::height() const {
    return loaded(fields_->height);
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
    return height > 0 ? change(fields_->height, height) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
    return factor > 0 ? change(fields_->width_factor, factor) : Acad::eInvalidInput;
}

double AcDbText::rotation() const {
    return loaded(fields_->rotation);
}

Acad::ErrorStatus AcDbText::setRotation(double angle) {
    return change(fields_->rotation, angle);
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
    return change(fields_->horizontal, mode);
}

ACHAR* AcDbText::textString() const {
    return acad__strdup(loaded(fields_->value).c_str());
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    return text == nullptr ? Acad::eInvalidInput : change(fields_->value, text);
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
    if (style.isNull()) {
        return Acad::eNullObjectId;
    }
    const host::DatabaseStore* const of_style = host::store_of(style);
    const std::wstring name =
        of_style == nullptr ? std::wstring() : of_style->entry_name(host::TableKind::text_styles, style);
    if (name.empty()) {
        return Acad::eWrongObjectType;
    }
    return change(fields_->style, name);
}

void AcDbText::read_fields(const dxf::RecordFields& from) {
    AcDbEntity::read_fields(from);
    dxf::read(from, *fields_);
}

void AcDbText::write_fields(dxf::FieldWriter& to) const {
    AcDbEntity::write_fields(to);
    dxf::write(*fields_, to);
}

void AcDbText::transform_text(const AcGeMatrix3d& transform) {
    dxf::Text& text = *fields_;
    const AcGeVector3d along = transform * AcGeVector3d(std::cos(text.rotation), std::sin(text.rotation), 0.0);
    const AcGeVector3d up = transform * AcGeVector3d(-std::sin(text.rotation), std::cos(text.rotation), 0.0);
    text.position = host::vector_of(transform * host::point_of(text.position));
    text.alignment = host::vector_of(transform * host::point_of(text.alignment));
    if (along.x * up.y < along.y * up.x) {
        // What was mirrored in any way is what was mirrored from left to right, turned until it stands as it should.
        text.generation ^= dxf::Text::backward_flag;
        text.rotation = std::atan2(-up.x, up.y);
    } else {
        text.rotation = std::atan2(along.y, along.x);
    }
    text.height *= up.length();
    if (up.length() > 0) {
        text.width_factor *= along.length() / up.length();
    }
}
