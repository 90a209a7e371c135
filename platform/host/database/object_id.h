// The layout of an AcDbObjectId: the drawing's serial, the kind of object, the object's number. All look-ups are
// direct.
#pragma once

#include <cstdint>

#include "dbid.h"

namespace host {

class DatabaseStore;

/// The kinds of objects; each kind has numbers of its own.
enum class ObjectSpace : uint8_t {
    record,   ///< dxf::RecordId: entities, entries of tables, objects
    block,    ///< BlockCatalogue: block table records
    table,    ///< TableKind
    implied,  ///< ImpliedObject: objects that every drawing has even when its file lacks them
};
constexpr unsigned object_space_count = 4;

enum ImpliedObject : uint32_t { implied_layer_0, implied_style_standard };

struct ObjectAddress {
    ObjectSpace space = ObjectSpace::record;
    uint32_t number = 0;
};

// Bits 0 to 31: the number; 32 and 33: the space; from 34: the drawing's serial, which is never 0.
static_assert(sizeof(Adesk::IntDbId) == 8, "object ids need 64 bits");

inline AcDbObjectId make_object_id(uint32_t serial, ObjectAddress at) {
    const uint64_t bits = uint64_t{serial} << 34 | uint64_t{static_cast<uint8_t>(at.space)} << 32 | at.number;
    return AcDbObjectId().setFromOldId(static_cast<Adesk::IntDbId>(bits));
}

inline ObjectAddress address_of(AcDbObjectId id) {
    const auto bits = static_cast<uint64_t>(id.asOldId());
    return {static_cast<ObjectSpace>(bits >> 32 & 3), static_cast<uint32_t>(bits)};
}

/// The open drawing that the id belongs to, or null.
DatabaseStore* store_of(AcDbObjectId id);

/// The serial under which store_of() finds `store` from now on. Serials are not used twice.
uint32_t register_store(DatabaseStore& store);
void unregister_store(uint32_t serial);

}  // namespace host
