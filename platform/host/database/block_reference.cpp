#include <algorithm>
#include <iterator>

#include "dbents.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/field_writer.h"
#include "platform/host/database/object_gate.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, 0, 0, 0, INSERT, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, 0, 0, 0, INSERT, 0)

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord)
    : position_(position), block_(blockTableRecord) {}

AcDbBlockReference::~AcDbBlockReference() {
    for (const OwnedAttribute& attribute : attributes_) {
        if (attribute.open != nullptr) {
            attribute.open->reference_ = nullptr;
        }
    }
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const {
    const host::DatabaseStore* const owner = store();
    if (owner == nullptr || isModified() || isNewObject()) {
        return block_;
    }
    // The record of the drawing knows its block without being read.
    const dxf::Record& reference = owner->drawing().record(host::address_of(objectId()).number);
    return owner->id_of_block(owner->blocks().inserted_by(reference));
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block) {
    if (block.objectClass() != AcDbBlockTableRecord::desc()) {
        return block.isNull() ? Acad::eNullObjectId : Acad::eWrongObjectType;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        block_ = block;
        block_name_.clear();
    }
    return status;
}

AcGePoint3d AcDbBlockReference::position() const {
    need_fields();
    return position_;
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& point) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        position_ = point;
    }
    return status;
}

AcGeScale3d AcDbBlockReference::scaleFactors() const {
    need_fields();
    return scale_;
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
    if (scale.sx == 0 || scale.sy == 0 || scale.sz == 0) {
        return Acad::eInvalidInput;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        scale_ = scale;
    }
    return status;
}

double AcDbBlockReference::rotation() const {
    need_fields();
    return rotation_;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        rotation_ = angle;
    }
    return status;
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    need_fields();
    AcDbBlockTableRecord* record = nullptr;
    AcGePoint3d origin;
    if (acdbOpenObject(record, blockTableRecord(), AcDb::kForRead) == Acad::eOk) {
        origin = record->origin();
        record->close();
    }
    return AcGeMatrix3d::translation(position_.asVector()) * AcGeMatrix3d::rotation_about_z(rotation_) *
           AcGeMatrix3d::scaling(scale_.sx, scale_.sy, scale_.sz) * AcGeMatrix3d::translation(-origin.asVector());
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbAttribute* attribute) {
    if (attribute == nullptr) {
        return Acad::eNullObjectPointer;
    }
    if (!isNewObject()) {
        return Acad::eNotApplicable;
    }
    if (!host::ObjectGate::detached(*attribute)) {
        return Acad::eAlreadyInDb;
    }
    const Acad::ErrorStatus status = begin_change();
    if (status == Acad::eOk) {
        host::ObjectGate::settle_space(*attribute, false, host::ObjectGate::layer(*this));
        host::ObjectGate::attach_added(*attribute, AcDbObjectId());
        attribute->reference_ = this;
        attributes_.push_back({attribute, {}});
    }
    return status;
}

std::vector<AcDbBlockReference::OwnedAttribute>::iterator AcDbBlockReference::owned(const AcDbAttribute& attribute) {
    // The one that was appended last is the one that is usually closed next.
    const auto found = std::find_if(attributes_.rbegin(), attributes_.rend(),
                                    [&](const OwnedAttribute& candidate) { return candidate.open == &attribute; });
    return std::prev(found.base());
}

void AcDbBlockReference::flush() {
    for (size_t i = 0; i < attributes_.size(); ++i) {
        if (AcDbAttribute* const open = attributes_[i].open) {
            open->flush();
        }
    }
    if (!attributes_.empty() && sequence_end_.empty()) {
        sequence_end_ = store()->encode_sequence_end(*this);
    }
    AcDbEntity::flush();
}

void AcDbBlockReference::read_fields(const host::FieldReader& from) {
    AcDbEntity::read_fields(from);
    block_ = blockTableRecord();
    block_name_ = from.text(2);
    position_ = from.point(10);
    scale_ = AcGeScale3d(from.real(41, 1.0), from.real(42, 1.0), from.real(43, 1.0));
    rotation_ = from.angle(50);
}

void AcDbBlockReference::write_fields(host::FieldWriter& to) const {
    AcDbEntity::write_fields(to);
    to.subclass(L"AcDbBlockReference");
    if (!attributes_.empty()) {
        to.integer(66, 1);
    }
    to.text(2, block_.isNull() || !block_name_.empty() ? block_name_
                                                       : to.store().blocks().name(host::address_of(block_).number));
    to.point(10, position_).real(41, scale_.sx, 1.0).real(42, scale_.sy, 1.0).real(43, scale_.sz, 1.0);
    to.angle(50, rotation_, 0.0);
    for (const OwnedAttribute& attribute : attributes_) {
        to.following(attribute.record);
    }
    if (!attributes_.empty()) {
        to.following(sequence_end_);
    }
}

Adesk::UInt16 AcDbMInsertBlock::columns() const {
    need_fields();
    return columns_;
}

Adesk::UInt16 AcDbMInsertBlock::rows() const {
    need_fields();
    return rows_;
}

void AcDbMInsertBlock::read_fields(const host::FieldReader& from) {
    constexpr int64_t most = 32767;  // what the format's 16 bits can say
    AcDbBlockReference::read_fields(from);
    columns_ = static_cast<Adesk::UInt16>(std::clamp<int64_t>(from.integer(70), 1, most));
    rows_ = static_cast<Adesk::UInt16>(std::clamp<int64_t>(from.integer(71), 1, most));
}
