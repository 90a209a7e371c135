#include <vector>

#include "dbmain.h"
#include "platform/host/database/database_store.h"

const AcDbObjectId AcDbObjectId::kNull;

bool AcDbObjectId::isValid() const {
    const host::DatabaseStore* const store = host::store_of(*this);
    return store != nullptr && store->exists(host::address_of(*this));
}

bool AcDbObjectId::isErased() const {
    const host::DatabaseStore* const store = host::store_of(*this);
    return store != nullptr && store->erased(host::address_of(*this));
}

AcDbDatabase* AcDbObjectId::database() const {
    const host::DatabaseStore* const store = host::store_of(*this);
    return store == nullptr ? nullptr : store->database();
}

AcDbHandle AcDbObjectId::handle() const {
    return AcDbHandle(isValid() ? host::store_of(*this)->handle(host::address_of(*this)) : 0);
}

AcRxClass* AcDbObjectId::objectClass() const {
    return isValid() ? host::store_of(*this)->class_of(host::address_of(*this)) : nullptr;
}

Acad::ErrorStatus acdbGetObjectId(AcDbObjectId& id, const ads_name name) {
    AcDbObjectId named;
    named.setFromOldId(name[0]);
    if (!named.isValid()) {
        return Acad::eInvalidAdsName;
    }
    id = named;
    return Acad::eOk;
}

Acad::ErrorStatus acdbGetAdsName(ads_name& name, AcDbObjectId id) {
    if (id.isNull()) {
        return Acad::eNullObjectId;
    }
    name[0] = id.asOldId();
    name[1] = 0;
    return Acad::eOk;
}

AcDbHandle::AcDbHandle(const ACHAR* hexadecimal) {
    for (const ACHAR* at = hexadecimal; at != nullptr && *at != 0; ++at) {
        const ACHAR letter = *at >= L'a' ? static_cast<ACHAR>(*at - 32) : *at;
        const int digit = letter >= L'0' && letter <= L'9'   ? letter - L'0'
                          : letter >= L'A' && letter <= L'F' ? letter - L'A' + 10
                                                             : -1;
        if (digit < 0) {
            value_ = 0;
            return;
        }
        value_ = value_ << 4 | static_cast<Adesk::UInt64>(digit);
    }
}

bool AcDbHandle::getIntoAsciiBuffer(ACHAR* buffer) const {
    if (buffer == nullptr) {
        return false;
    }
    int digits = 1;
    while (digits < 16 && value_ >> (4 * digits) != 0) {
        ++digits;
    }
    for (int i = 0; i < digits; ++i) {
        buffer[i] = L"0123456789ABCDEF"[value_ >> (4 * (digits - 1 - i)) & 15];
    }
    buffer[digits] = 0;
    return true;
}

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
