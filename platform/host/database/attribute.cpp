#include <utility>

#include "acutmem.h"
#include "dbents.h"
#include "platform/host/database/database_store.h"
#include "platform/host/dxf/entities.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, 0, 0, 0, ATTDEF, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbText, 0, 0, 0, ATTRIB, 0)

namespace {

std::wstring text_or_empty(const ACHAR* text) {
    return text == nullptr ? std::wstring() : std::wstring(text);
}

}  // namespace

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
