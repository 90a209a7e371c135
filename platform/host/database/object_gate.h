// ObjectGate, by which the host reaches the members of AcDbObject that modules do not see.
#pragma once

#include "dbents.h"
#include "dbsymtb.h"
#include "platform/host/database/object_id.h"

namespace host {

/// What the store does to the instances that stand for its objects.
class ObjectGate {
  public:
    /// A fresh instance becomes the open object `id`.
    static void attach(AcDbObject& object, AcDbObjectId id, AcDb::OpenMode mode) {
        object.id_ = id;
        object.mode_ = mode == AcDb::kForWrite ? AcDbObject::Mode::write : AcDbObject::Mode::read;
        object.readers_ = 1;
        object.loaded_ = false;
    }
    /// A module's own object has become part of the drawing. Sub-records have no id.
    static void attach_added(AcDbObject& object, AcDbObjectId id) {
        object.id_ = id;
        object.mode_ = AcDbObject::Mode::write;
        object.readers_ = 1;
        object.added_now_ = true;
        object.modified_ = false;
    }
    static bool detached(const AcDbObject& object) { return object.mode_ == AcDbObject::Mode::detached; }
    static bool writing(const AcDbObject& object) { return object.mode_ == AcDbObject::Mode::write; }
    static unsigned readers(const AcDbObject& object) { return object.readers_; }
    static void add_reader(AcDbObject& object) { ++object.readers_; }

    static void read(AcDbObject& object, const dxf::RecordFields& from) { object.read_fields(from); }
    static void write(const AcDbObject& object, dxf::FieldWriter& to) { object.write_fields(to); }
    static void load(const AcDbObject& object) { object.need_fields(); }

    static const std::wstring& layer(const AcDbEntity& entity) { return entity.layer_; }
    static void settle_space(AcDbEntity& entity, bool paper, const std::wstring& current_layer) {
        entity.paper_space_ = paper;
        if (entity.layer_.empty()) {
            entity.layer_ = current_layer;
        }
    }
    static void settle_colour(AcDbEntity& entity, int current_colour) {
        if (!entity.color_) {
            entity.color_ = static_cast<Adesk::UInt16>(current_colour);
        }
    }
};

}  // namespace host
