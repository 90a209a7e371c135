#include "afxcmdtarget_.h"

CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static constexpr AFX_MSGMAP_ENTRY map_entries[] = {{0, 0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP message_map = {nullptr, map_entries};
    return &message_map;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    for (; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage; ++entry) {
            if (entry->nMessage == message && entry->nCode == code && entry->nID <= id && id <= entry->nLastID) {
                return entry;
            }
        }
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void*, void*) {
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(GetMessageMap(), WM_COMMAND, LOWORD(code), id);
    if (!entry) {
        return FALSE;
    }
    AFX_MESSAGE message{entry->nMessage, id, 0, 0};
    return entry->invoke(this, message);
}
