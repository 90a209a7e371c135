#include <cmath>

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/field_writer.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, 0, 0, 0, TEXT, 0)

namespace {

constexpr int backward_bit = 2;

}  // namespace

AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation)
    : position_(position), rotation_(rotation), text_(text == nullptr ? ACRX_T("") : text) {
    if (height > 0) {
        height_ = height;
    }
    setTextStyle(style);
}

AcGePoint3d AcDbText::position() const {
    need_fields();
    return position_;
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& point) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        position_ = point;
    }
    return status;
}

AcGePoint3d AcDbText::alignmentPoint() const {
    need_fields();
    return alignment_;
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& point) {
    if (isDefaultAlignment()) {
        return Acad::eNotApplicable;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        alignment_ = point;
    }
    return status;
}

bool AcDbText::isDefaultAlignment() const {
    need_fields();
    return horizontal_ == AcDb::kTextLeft && vertical_ == AcDb::kTextBase;
}

double AcDbText::height() const {
    need_fields();
    return height_;
}

Acad::ErrorStatus AcDbText::setHeight(double height) {
    if (!(height > 0)) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        height_ = height;
    }
    return status;
}

double AcDbText::widthFactor() const {
    need_fields();
    return width_factor_;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor) {
    if (!(factor > 0)) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        width_factor_ = factor;
    }
    return status;
}

double AcDbText::rotation() const {
    need_fields();
    return rotation_;
}

Acad::ErrorStatus AcDbText::setRotation(double angle) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        rotation_ = angle;
    }
    return status;
}

AcDb::TextHorzMode AcDbText::horizontalMode() const {
    need_fields();
    return horizontal_;
}

Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        horizontal_ = mode;
    }
    return status;
}

AcDb::TextVertMode AcDbText::verticalMode() const {
    need_fields();
    return vertical_;
}

Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        vertical_ = mode;
    }
    return status;
}

ACHAR* AcDbText::textString() const {
    need_fields();
    return acad__strdup(text_.c_str());
}

Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) {
    if (text == nullptr) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        text_ = text;
    }
    return status;
}

AcDbObjectId AcDbText::textStyle() const {
    need_fields();
    AcDbDatabase* const drawing = database();
    return drawing == nullptr ? style_id_ : drawing->store().table_entry_named(host::TableKind::text_styles, style_);
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
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        style_ = name;
        style_id_ = style;
    }
    return status;
}

void AcDbText::read_fields(const host::FieldReader& from) {
    AcDbEntity::read_fields(from);
    position_ = from.point(10);
    alignment_ = from.has(11) ? from.point(11) : position_;
    height_ = from.real(40);
    width_factor_ = from.real(41, 1.0);
    rotation_ = from.angle(50);
    oblique_ = from.angle(51);
    text_ = from.text(1);
    style_ = from.text(7, L"Standard");
    mirroring_ = from.integer(71);
    horizontal_ = static_cast<AcDb::TextHorzMode>(from.integer(72));
    read_vertical_mode(from, 73);
}

void AcDbText::read_vertical_mode(const host::FieldReader& from, int code) {
    vertical_ = static_cast<AcDb::TextVertMode>(from.integer(code));
}

void AcDbText::write_text_fields(host::FieldWriter& to) const {
    AcDbEntity::write_fields(to);
    const bool justified = horizontal_ != AcDb::kTextLeft || vertical_ != AcDb::kTextBase;
    to.subclass(L"AcDbText").point(10, position_).real(40, height_).text(1, text_);
    to.angle(50, rotation_, 0.0).real(41, width_factor_, 1.0).angle(51, oblique_, 0.0).text(7, style_, L"Standard");
    to.integer(71, mirroring_, 0).integer(72, horizontal_, AcDb::kTextLeft);
    to.point_if(justified, 11, justified ? alignment_ : position_);
}

void AcDbText::write_fields(host::FieldWriter& to) const {
    write_text_fields(to);
    to.subclass(L"AcDbText").integer(73, vertical_, AcDb::kTextBase);
}

void AcDbText::copy_text(const AcDbText& other) {
    position_ = other.position_;
    alignment_ = other.alignment_;
    height_ = other.height_;
    width_factor_ = other.width_factor_;
    rotation_ = other.rotation_;
    oblique_ = other.oblique_;
    text_ = other.text_;
    style_ = other.style_;
    style_id_ = other.style_id_;
    mirroring_ = other.mirroring_;
    horizontal_ = other.horizontal_;
    vertical_ = other.vertical_;
}

void AcDbText::transform_text(const AcGeMatrix3d& transform) {
    const AcGeVector3d along = transform * AcGeVector3d(std::cos(rotation_), std::sin(rotation_), 0.0);
    const AcGeVector3d up = transform * AcGeVector3d(-std::sin(rotation_), std::cos(rotation_), 0.0);
    position_ = transform * position_;
    alignment_ = transform * alignment_;
    if (along.x * up.y < along.y * up.x) {
        // What was mirrored in any way is what was mirrored from left to right, turned until it stands as it should.
        mirroring_ ^= backward_bit;
        rotation_ = std::atan2(-up.x, up.y);
    } else {
        rotation_ = std::atan2(along.y, along.x);
    }
    height_ *= up.length();
    if (up.length() > 0) {
        width_factor_ *= along.length() / up.length();
    }
}
