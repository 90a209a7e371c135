#include <cmath>
#include <utility>

#include "acutmem.h"
#include "dbents.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/vectors.h"
#include "platform/host/dxf/entities.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, 0, 0, 0, TEXT, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, 0, 0, 0, ATTDEF, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbText, 0, 0, 0, ATTRIB, 0)

namespace {

std::wstring text_or_empty(const ACHAR* text) {
    return text == nullptr ? std::wstring() : std::wstring(text);
}

}  // namespace

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
        // Any mirroring is a mirroring from left to right followed by a turn.
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

AcDbAttributeDefinition::AcDbAttributeDefinition() : AcDbText(dxf::TextKind::definition, {}, nullptr, {}) {}

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                                                 const ACHAR* prompt, AcDbObjectId style)
    : AcDbText(dxf::TextKind::definition, position, text, style) {
    fields_->tag = text_or_empty(tag);
    fields_->prompt = text_or_empty(prompt);
}

ACHAR* AcDbAttributeDefinition::prompt() const {
    return acad__strdup(loaded(fields_->prompt).c_str());
}

ACHAR* AcDbAttributeDefinition::tag() const {
    return acad__strdup(loaded(fields_->tag).c_str());
}

Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(Adesk::Boolean set) {
    return change_bits(fields_->flags, dxf::Text::invisible_flag, set);
}

Adesk::Boolean AcDbAttributeDefinition::isConstant() const {
    return (loaded(fields_->flags) & dxf::Text::constant_flag) != 0;
}

Acad::ErrorStatus AcDbAttributeDefinition::setVerifiable(Adesk::Boolean set) {
    return change_bits(fields_->flags, dxf::Text::verify_flag, set);
}

Adesk::Boolean AcDbAttributeDefinition::isPreset() const {
    return (loaded(fields_->flags) & dxf::Text::preset_flag) != 0;
}

Acad::ErrorStatus AcDbAttributeDefinition::setPreset(Adesk::Boolean set) {
    return change_bits(fields_->flags, dxf::Text::preset_flag, set);
}

AcDbAttribute::AcDbAttribute() : AcDbText(dxf::TextKind::attribute, {}, nullptr, {}) {}

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style)
    : AcDbText(dxf::TextKind::attribute, position, text, style) {
    fields_->tag = text_or_empty(tag);
}

AcDbAttribute::~AcDbAttribute() {
    if (reference_ != nullptr) {
        reference_->attributes_.erase(reference_->owned(*this));
    }
}

ACHAR* AcDbAttribute::tag() const {
    return acad__strdup(loaded(fields_->tag).c_str());
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& blockTransform) {
    if (definition == nullptr) {
        return Acad::eNullObjectPointer;
    }
    const AcDbText& source = *definition;
    source.need_fields();
    const Acad::ErrorStatus status = change(*fields_, *source.fields_);
    if (status != Acad::eOk) {
        return status;
    }
    fields_->kind = dxf::TextKind::attribute;
    copy_properties(source);
    transform_text(blockTransform);
    return Acad::eOk;
}

void AcDbAttribute::flush() {
    if (reference_ != nullptr) {
        AcDbBlockReference& reference = *std::exchange(reference_, nullptr);
        *reference.owned(*this) = {nullptr, reference.store()->encode_attribute(*this, reference.objectId())};
    } else if (!objectId().isNull()) {
        AcDbText::flush();
    }
}
