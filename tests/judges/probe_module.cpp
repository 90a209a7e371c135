// A module that lets a test hold the host at a line of its script (HOLD), and tells what the process holds (RESOURCES).
// It speaks over the standard streams, which the test has pipes to.
#include <windows.h>

#include <aced.h>
#include <rxdlinkr.h>

#include <cstdio>
#include <string>
#include <vector>

#include "platform/host/database/open_objects.h"

namespace {

void say(const std::string& line) {
    const std::string bytes = line + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

/// Until the test has written a line.
void hold() {
    say("held");
    char byte = 0;
    DWORD count = 0;
    while (byte != '\n' && ReadFile(GetStdHandle(STD_INPUT_HANDLE), &byte, 1, &count, nullptr) != 0 && count != 0) {
    }
}

/// Wine counts none in GetGuiResources. A handle's low word is its place in the system's table; the high word may be 0.
unsigned gdi_objects() {
    constexpr DWORD object_types[] = {OBJ_PEN, OBJ_BRUSH, OBJ_FONT, OBJ_BITMAP, OBJ_REGION, OBJ_DC, OBJ_MEMDC, OBJ_PAL};
    unsigned count = 0;
    for (ULONG_PTR index = 0; index < 0x10000; ++index) {
        const DWORD type = GetObjectType(reinterpret_cast<HGDIOBJ>(index));
        for (const DWORD known : object_types) {
            count += type == known ? 1 : 0;
        }
    }
    return count;
}

/// Windows and menus, in the same way.
unsigned user_objects() {
    unsigned count = 0;
    for (ULONG_PTR index = 0x20; index < 0x8000; index += 2) {
        DWORD process = 0;
        const HWND window = reinterpret_cast<HWND>(index);
        GetWindowThreadProcessId(window, &process);
        count += process == GetCurrentProcessId() ? 1 : 0;
        count += IsMenu(reinterpret_cast<HMENU>(index)) != 0 ? 1 : 0;
    }
    return count;
}

/// What the heaps of the process have given out.
size_t heap_bytes() {
    std::vector<HANDLE> heaps(GetProcessHeaps(0, nullptr) + 8);
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    size_t bytes = 0;
    for (DWORD i = 0; i < count; ++i) {
        HeapLock(heaps[i]);
        PROCESS_HEAP_ENTRY entry = {};
        while (HeapWalk(heaps[i], &entry) != 0) {
            bytes += (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) != 0 ? entry.cbData : 0;
        }
        HeapUnlock(heaps[i]);
    }
    return bytes;
}

/// The command line's history has a limit of its own, and is no leak.
BOOL CALLBACK clear_history(HWND window, LPARAM) {
    wchar_t name[16] = {};
    GetClassNameW(window, name, 16);
    if (_wcsicmp(name, L"EDIT") == 0) {
        SetWindowTextW(window, L"");
    }
    return TRUE;
}

void tell_resources() {
    EnumChildWindows(adsw_acadMainWnd(), clear_history, 0);
    char line[100];
    std::snprintf(line, sizeof line, "gdi %u user %u objects %zu heap %zu", gdi_objects(), user_objects(),
                  host::open_object_count(), heap_bytes());
    say(line);
}

void leak() {
    CreateSolidBrush(RGB(1, 2, 3));
    CreateMenu();
    HeapAlloc(GetProcessHeap(), 0, 1000);
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
    if (message == AcRx::kInitAppMsg) {
        acrxDynamicLinker->unlockApplication(application);
        acedRegCmds->addCommand(L"PROBE", L"PROBE_HOLD", L"HOLD", ACRX_CMD_TRANSPARENT, hold);
        acedRegCmds->addCommand(L"PROBE", L"PROBE_RESOURCES", L"RESOURCES", ACRX_CMD_TRANSPARENT, tell_resources);
        acedRegCmds->addCommand(L"PROBE", L"PROBE_LEAK", L"LEAK", ACRX_CMD_MODAL, leak);
    } else if (message == AcRx::kUnloadAppMsg) {
        acedRegCmds->removeGroup(L"PROBE");
    }
    return AcRx::kRetOK;
}

extern "C" int acrxGetApiVersion() {
    return ACRX_API_VERSION;
}
