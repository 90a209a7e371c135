// A module for tests and judges: commands that ask, misbehave, hold the host at a line of its script (HOLD), and tell
// what the process holds (RESOURCES). HOLD and RESOURCES use the standard streams, which are pipes to the judge.
#include <windows.h>

#include <aced.h>
#include <rxdlinkr.h>

#include <cstdio>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/host/database/open_objects.h"

namespace {

void print_state() {
    resbuf names{};
    resbuf active{};
    acedGetVar(L"CMDNAMES", &names);
    acedGetVar(L"CMDACTIVE", &active);
    acutPrintf(L"\nstate %s %d", names.resval.rstring, active.resval.rint);
    acad_free(names.resval.rstring);
}

void ask_point() {
    ads_point point = {};
    acedInitGet(1, nullptr);
    const int outcome = acedGetPoint(nullptr, L"\nPoint: ", point);
    acutPrintf(L"\npoint %d %g %g", outcome, point[X], point[Y]);
}

void read_events() {
    int type = 0;
    resbuf result{};
    int outcome = RTNORM;
    while ((outcome = acedGrRead(9, &type, &result)) == RTNORM && type != 2) {
        acutPrintf(L"\nevent %d %g,%g", type, result.resval.rpoint[X], result.resval.rpoint[Y]);
    }
    acutPrintf(L"\nlast %d %d", outcome, outcome == RTNORM ? result.resval.rint : 0);
}

void throw_exception() {
    throw std::runtime_error("out of order");
}
void leak_resources() {
    acDocManagerPtr()->pushResourceHandle(GetModuleHandleW(L"TestModule.arx"));
}
void hang() {
    Sleep(INFINITE);
}
void unload_itself() {
    acedCommand(RTSTR, L".ARX", RTSTR, L"Unload", RTSTR, L"TestModule.arx", RTNONE);
}

class Listener : public AcApDocManagerReactor {
  public:
    Listener() { acDocManagerPtr()->addReactor(this); }
    ~Listener() override { acDocManagerPtr()->removeReactor(this); }
    void documentActivated(AcApDocument*) override { acutPrintf(L"\nactivated"); }
    void documentToBeDestroyed(AcApDocument* document) override {
        acutPrintf(L"\nto be destroyed %s", document->docTitle());
    }
};

Listener listener;

void say(const std::string& line) {
    const std::string bytes = line + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

/// Waits until the test has written a line.
void hold() {
    say("held");
    char byte = 0;
    DWORD count = 0;
    while (byte != '\n' && ReadFile(GetStdHandle(STD_INPUT_HANDLE), &byte, 1, &count, nullptr) != 0 && count != 0) {
    }
}

/// Counts GDI objects, since Wine's GetGuiResources does not. A handle's low word is its place in the system's table;
/// the high word may be 0.
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

/// Counts windows and menus in the same way.
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

/// How many bytes the heaps of the process have given out.
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

/// Clears the command line's history, which has a limit and so is no leak.
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

void add_commands() {
    const struct {
        const wchar_t* name;
        void (*function)();
        int flags;
    } commands[] = {
        {L"TSTSTATE", print_state, ACRX_CMD_TRANSPARENT},     {L"TSTPOINT", ask_point, ACRX_CMD_MODAL},
        {L"TSTEVENTS", read_events, ACRX_CMD_MODAL},          {L"TSTTHROW", throw_exception, ACRX_CMD_MODAL},
        {L"TSTLEAK", leak_resources, ACRX_CMD_MODAL},         {L"TSTHANG", hang, ACRX_CMD_MODAL},
        {L"TSTUNLOAD", unload_itself, ACRX_CMD_MODAL},        {L"HOLD", hold, ACRX_CMD_TRANSPARENT},
        {L"RESOURCES", tell_resources, ACRX_CMD_TRANSPARENT}, {L"LEAK", leak, ACRX_CMD_MODAL}};
    for (const auto& command : commands) {
        acedRegCmds->addCommand(L"TST_GROUP", (std::wstring(L"GLOBAL_") + command.name).c_str(), command.name,
                                command.flags, command.function);
    }
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
    if (message == AcRx::kInitAppMsg) {
        acrxDynamicLinker->unlockApplication(application);
        add_commands();
    } else if (message == AcRx::kUnloadAppMsg) {
        acedRegCmds->removeGroup(L"TST_GROUP");
    } else {
        acutPrintf(L"\nmessage %d", message);
    }
    return AcRx::kRetOK;
}

extern "C" int acrxGetApiVersion() {
    return ACRX_API_VERSION;
}
