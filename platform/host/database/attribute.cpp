#include <utility>

#include "acutmem.h"
#include "dbents.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/field_writer.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbAttributeDefinition, AcDbText, 0, 0, 0, ATTDEF, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbAttribute, AcDbText, 0, 0, 0, ATTRIB, 0)

namespace {

constexpr int invisible_bit = 1;
constexpr int constant_bit = 2;
constexpr int verify_bit = 4;
constexpr int preset_bit = 8;

std::wstring text_or_empty(const ACHAR* text) {
    return text == nullptr ? std::wstring() : std::wstring(text);
}

bool valid_tag(const ACHAR* tag) {
    return tag != nullptr && *tag != 0 && text_or_empty(tag).find(L' ') == std::wstring::npos;
}

}  // namespace

AcDbAttributeDefinition::AcDbAttributeDefinition(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag,
                                                 const ACHAR* prompt, AcDbObjectId style)
    : AcDbText(position, text, style), prompt_(text_or_empty(prompt)), tag_(text_or_empty(tag)) {}

ACHAR* AcDbAttributeDefinition::prompt() const {
    need_fields();
    return acad__strdup(prompt_.c_str());
}

Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        prompt_ = text_or_empty(prompt);
    }
    return status;
}

ACHAR* AcDbAttributeDefinition::tag() const {
    need_fields();
    return acad__strdup(tag_.c_str());
}

Acad::ErrorStatus AcDbAttributeDefinition::setTag(const ACHAR* tag) {
    if (!valid_tag(tag)) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        tag_ = tag;
    }
    return status;
}

bool AcDbAttributeDefinition::flag(int bit) const {
    need_fields();
    return (flags_ & bit) != 0;
}

Acad::ErrorStatus AcDbAttributeDefinition::set_flag(int bit, bool set) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        flags_ = set ? flags_ | bit : flags_ & ~bit;
    }
    return status;
}

Adesk::Boolean AcDbAttributeDefinition::isInvisible() const {
    return flag(invisible_bit);
}

Acad::ErrorStatus AcDbAttributeDefinition::setInvisible(Adesk::Boolean set) {
    return set_flag(invisible_bit, set);
}

Adesk::Boolean AcDbAttributeDefinition::isConstant() const {
    return flag(constant_bit);
}

Acad::ErrorStatus AcDbAttributeDefinition::setConstant(Adesk::Boolean set) {
    return set_flag(constant_bit, set);
}

Adesk::Boolean AcDbAttributeDefinition::isVerifiable() const {
    return flag(verify_bit);
}

Acad::ErrorStatus AcDbAttributeDefinition::setVerifiable(Adesk::Boolean set) {
    return set_flag(verify_bit, set);
}

Adesk::Boolean AcDbAttributeDefinition::isPreset() const {
    return flag(preset_bit);
}

Acad::ErrorStatus AcDbAttributeDefinition::setPreset(Adesk::Boolean set) {
    return set_flag(preset_bit, set);
}

void AcDbAttributeDefinition::read_fields(const host::FieldReader& from) {
    AcDbText::read_fields(from);
    prompt_ = from.text(3);
    tag_ = from.text(2);
    flags_ = from.integer(70);
    read_vertical_mode(from, 74);
}

void AcDbAttributeDefinition::write_fields(host::FieldWriter& to) const {
    write_text_fields(to);
    to.subclass(L"AcDbAttributeDefinition").text(3, prompt_).text(2, tag_).integer(70, flags_);
    to.integer(74, verticalMode(), AcDb::kTextBase);
}

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style)
    : AcDbText(position, text, style), tag_(text_or_empty(tag)) {}

AcDbAttribute::~AcDbAttribute() {
    if (reference_ != nullptr) {
        reference_->attributes_.erase(reference_->owned(*this));
    }
}

ACHAR* AcDbAttribute::tag() const {
    need_fields();
    return acad__strdup(tag_.c_str());
}

Acad::ErrorStatus AcDbAttribute::setTag(const ACHAR* tag) {
    if (!valid_tag(tag)) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        tag_ = tag;
    }
    return status;
}

Adesk::Boolean AcDbAttribute::isInvisible() const {
    need_fields();
    return (flags_ & invisible_bit) != 0;
}

Acad::ErrorStatus AcDbAttribute::setInvisible(Adesk::Boolean set) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        flags_ = set ? flags_ | invisible_bit : flags_ & ~invisible_bit;
    }
    return status;
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& blockTransform) {
    if (definition == nullptr) {
        return Acad::eNullObjectPointer;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status != Acad::eOk) {
        return status;
    }
    definition->need_fields();
    copy_properties(*definition);
    copy_text(*definition);
    transform_text(blockTransform);
    tag_ = definition->tag_;
    flags_ = definition->flags_;
    return Acad::eOk;
}

void AcDbAttribute::read_fields(const host::FieldReader& from) {
    AcDbText::read_fields(from);
    tag_ = from.text(2);
    flags_ = from.integer(70);
    read_vertical_mode(from, 74);
}

void AcDbAttribute::write_fields(host::FieldWriter& to) const {
    write_text_fields(to);
    to.subclass(L"AcDbAttribute").text(2, tag_).integer(70, flags_).integer(74, verticalMode(), AcDb::kTextBase);
}

void AcDbAttribute::flush() {
    if (reference_ != nullptr) {
        AcDbBlockReference& reference = *std::exchange(reference_, nullptr);
        *reference.owned(*this) = {nullptr, reference.store()->encode_attribute(*this, reference.objectId())};
    } else if (!objectId().isNull()) {
        AcDbText::flush();
    }
}
