#include "afxcmdtarget_.h"

CCmdTarget::~CCmdTarget() = default;

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static constexpr AFX_MSGMAP_ENTRY kEntries[] = {{0, 0, 0, 0, nullptr}};
    static constexpr AFX_MSGMAP kMap = {nullptr, kEntries};
    return &kMap;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP_ENTRY* CCmdTarget::FindMessageEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    // The codes of WM_NOTIFY are negative; 16 bits of them tell them apart, and are what a command carries.
    const WORD short_code = LOWORD(code);
    for (; map; map = map->pfnGetBaseMap ? map->pfnGetBaseMap() : nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage; ++entry) {
            if (entry->nMessage == message && LOWORD(entry->nCode) == short_code && entry->nID <= id &&
                id <= entry->nLastID) {
                return entry;
            }
        }
    }
    return nullptr;
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, void*) {
    const bool is_notify = HIWORD(code) == WM_NOTIFY;
    const AFX_MSGMAP_ENTRY* entry =
        FindMessageEntry(GetMessageMap(), is_notify ? WM_NOTIFY : WM_COMMAND, LOWORD(code), id);
    if (!entry) {
        return FALSE;
    }
    AFX_MESSAGE message{entry->nMessage, id, 0, 0};
    if (!is_notify) {
        return entry->invoke(this, message);
    }
    const auto* notify = static_cast<const AFX_NOTIFY*>(extra);
    message.lParam = reinterpret_cast<LPARAM>(notify->pNMHDR);
    const BOOL taken = entry->invoke(this, message);
    *notify->pResult = message.result;
    return taken;
}
