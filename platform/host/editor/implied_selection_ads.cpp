// acedSSSetFirst: what a module selects for the user.
#include "acedsel.h"
#include "dbmain.h"
#include "platform/host/database/object_id.h"
#include "platform/host/editor/editor.h"
#include "platform/host/prompt/person.h"

int acedSSSetFirst(const ads_name set, const ads_name) {
    long length = 0;
    if (set != nullptr && acedSSLength(set, &length) != RTNORM) {
        return RTERROR;
    }
    std::vector<dxf::RecordId> records;
    records.reserve(static_cast<size_t>(length));
    for (long at = 0; at < length; ++at) {
        ads_name entity;
        acedSSName(set, at, entity);
        records.push_back(host::address_of(AcDbObjectId().setFromOldId(entity[0])).number);
    }
    host::editor().selection.set(records);
    host::person().show_selected(records);
    return RTNORM;
}
