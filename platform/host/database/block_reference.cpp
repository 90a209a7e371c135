#include <algorithm>
#include <iterator>

#include "dbents.h"
#include "dbobjptr.h"
#include "dbsymtb.h"
#include "platform/host/database/database_store.h"
#include "platform/host/database/object_gate.h"
#include "platform/host/database/vectors.h"
#include "platform/host/dxf/entities.h"
#include "platform/host/view/transform3.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, 0, 0, 0, INSERT, 0)
ACRX_DXF_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, 0, 0, 0, INSERT, 0)

namespace {

Adesk::UInt16 copies_in_line(int64_t number) {
    constexpr int64_t most = 32767;  // what the format's 16 bits can say
    return static_cast<Adesk::UInt16>(std::clamp<int64_t>(number, 1, most));
}

}  // namespace

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId blockTableRecord)
    : block_(blockTableRecord) {
    placement().position = host::vector_of(position);
}

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

dxf::Insert& AcDbBlockReference::placement() const {
    if (placement_ == nullptr) {
        placement_ = std::make_shared<dxf::Insert>();
    }
    return *placement_;
}

const dxf::Insert& AcDbBlockReference::placed() const {
    return has_fields() ? placement() : store()->placement_in(host::address_of(objectId()).number);
}

AcGePoint3d AcDbBlockReference::position() const {
    const dxf::Insert& insert = placed();
    return host::point_of(host::Transform3::extrusion(insert.extrusion)(insert.position));
}

AcGeScale3d AcDbBlockReference::scaleFactors() const {
    const dxf::Vec3& scale = placed().scale;
    return {scale.x, scale.y, scale.z};
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& scale) {
    const bool flat = scale.sx == 0 || scale.sy == 0 || scale.sz == 0;
    return flat ? Acad::eInvalidInput : change(placement().scale, dxf::Vec3{scale.sx, scale.sy, scale.sz});
}

double AcDbBlockReference::rotation() const {
    return placed().rotation;
}

Acad::ErrorStatus AcDbBlockReference::setRotation(double angle) {
    return change(placement().rotation, angle);
}

AcGeVector3d AcDbBlockReference::normal() const {
    const dxf::Vec3& extrusion = placed().extrusion;
    return {extrusion.x, extrusion.y, extrusion.z};
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const {
    const AcDbObjectPointer<AcDbBlockTableRecord> record(blockTableRecord(), AcDb::kForRead);
    const AcGePoint3d origin = record.openStatus() == Acad::eOk ? record->origin() : AcGePoint3d();
    const host::Transform3 map = host::placement_of(loaded(placement()), host::vector_of(origin));
    const dxf::Vec3 columns[] = {map.x, map.y, map.z, map.origin};
    AcGeMatrix3d matrix;
    for (int column = 0; column < 4; ++column) {
        matrix.entry[0][column] = columns[column].x;
        matrix.entry[1][column] = columns[column].y;
        matrix.entry[2][column] = columns[column].z;
    }
    return matrix;
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
    // Searched from the end, because the attribute that was appended last is usually closed next.
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

void AcDbBlockReference::read_fields(const dxf::RecordFields& from) {
    AcDbEntity::read_fields(from);
    block_ = blockTableRecord();
    block_name_ = from.text(2);
    dxf::read(from, placement());
}

void AcDbBlockReference::write_fields(dxf::FieldWriter& to) const {
    AcDbEntity::write_fields(to);
    to.subclass(L"AcDbBlockReference");
    if (!attributes_.empty()) {
        to.integer(66, 1);
    }
    to.text(2, block_.isNull() || !block_name_.empty()
                   ? block_name_
                   : host::store_of(block_)->blocks().name(host::address_of(block_).number));
    dxf::write(placement(), to);
    for (const OwnedAttribute& attribute : attributes_) {
        to.following(attribute.record);
    }
    if (!attributes_.empty()) {
        to.following(sequence_end_);
    }
}

Adesk::UInt16 AcDbMInsertBlock::columns() const {
    return copies_in_line(placed().columns);
}

Adesk::UInt16 AcDbMInsertBlock::rows() const {
    return copies_in_line(placed().rows);
}
