#include "platform/host/editor/object_registry.h"

#include "base/case_folding.h"
#include "rxsrvice.h"

ACRX_NO_CONS_DEFINE_MEMBERS(AcRxDictionary, AcRxObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcRxService, AcRxObject)

namespace host {

AcRxObject* ObjectRegistry::at(const ACHAR* key) const {
    const auto found = key == nullptr ? objects_.end() : objects_.find(base::lower(key));
    return found == objects_.end() ? nullptr : found->second;
}

AcRxObject* ObjectRegistry::atPut(const ACHAR* key, AcRxObject* object) {
    if (key == nullptr || object == nullptr) {
        return nullptr;
    }
    AcRxObject*& place = objects_[base::lower(key)];
    AcRxObject* const previous = place;
    place = object;
    return previous;
}

AcRxObject* ObjectRegistry::remove(const ACHAR* key) {
    AcRxObject* const removed = at(key);
    if (removed != nullptr) {
        objects_.erase(base::lower(key));
    }
    return removed;
}

}  // namespace host
