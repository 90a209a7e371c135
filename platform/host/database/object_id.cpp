#include "platform/host/database/object_id.h"

#include <vector>

namespace host {
namespace {

std::vector<DatabaseStore*>& stores() {
    static std::vector<DatabaseStore*> by_serial(1, nullptr);
    return by_serial;
}

}  // namespace

DatabaseStore* store_of(AcDbObjectId id) {
    const uint64_t serial = static_cast<uint64_t>(id.asOldId()) >> 34;
    const std::vector<DatabaseStore*>& by_serial = stores();
    return serial < by_serial.size() ? by_serial[serial] : nullptr;
}

uint32_t register_store(DatabaseStore& store) {
    stores().push_back(&store);
    return static_cast<uint32_t>(stores().size() - 1);
}

void unregister_store(uint32_t serial) {
    stores()[serial] = nullptr;
}

}  // namespace host
