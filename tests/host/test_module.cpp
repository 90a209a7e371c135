// A module for the host's tests: commands that ask, show dialogs, and misbehave.
#include <afxwin.h>
#include <afxdllx.h>

#include <aced.h>
#include <rxdlinkr.h>

#include <stdexcept>

#include "test_module.h"

namespace {

AFX_EXTENSION_MODULE extension_module = {FALSE, nullptr, nullptr};

/// Three columns and three rows of cells, 20 by 10 pixels; row -1 is the heading above them.
struct CellQuestion {
    int column;
    int row;
    RECT box;
};

constexpr int cell_width = 20;
constexpr int cell_height = 10;

LRESULT CALLBACK grid_procedure(HWND window, UINT message, WPARAM wparam, LPARAM lparam) {
    static const UINT query = RegisterWindowMessageW(L"CellRectangleQuery");
    if (message == query) {
        auto& cell = *reinterpret_cast<CellQuestion*>(lparam);
        if (cell.column < 0 || cell.column > 2 || cell.row < -1 || cell.row > 2) {
            return 0;
        }
        cell.box = {cell.column * cell_width, (cell.row + 1) * cell_height, (cell.column + 1) * cell_width,
                    (cell.row + 2) * cell_height};
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&cell.box), 2);
        return 1;
    }
    const wchar_t* name = message == WM_LBUTTONDOWN     ? L"down"
                          : message == WM_LBUTTONUP     ? L"up"
                          : message == WM_LBUTTONDBLCLK ? L"double"
                                                        : nullptr;
    if (name != nullptr) {
        CString text;
        GetDlgItemTextW(GetParent(window), IDC_LAST_EVENT, text.GetBuffer(200), 200);
        text.ReleaseBuffer();
        const CPoint at(lparam);
        const std::wstring place = L" " + std::to_wstring(at.x) + L"," + std::to_wstring(at.y) + L";";
        SetDlgItemTextW(GetParent(window), IDC_LAST_EVENT, text + name + place.c_str());
    }
    return DefWindowProcW(window, message, wparam, lparam);
}

class TestDialog : public CDialog {
  public:
    TestDialog() : CDialog(IDD_TEST, CWnd::FromHandle(adsw_acadMainWnd())) {}

  private:
    void echo() {
        CString text;
        GetDlgItem(IDC_TEXT)->GetWindowText(text);
        acutPrintf(L"\necho [%s] %d", static_cast<const wchar_t*>(text), IsDlgButtonChecked(IDC_TICK));
    }
    void ask_file() {
        resbuf result{};
        const int outcome = acedGetFileD(L"Save as", L"proposal.txt", L"txt", 1, &result);
        acutPrintf(L"\nfile %d %s", outcome, outcome == RTNORM ? wcsrchr(result.resval.rstring, L'\\') + 1 : L"-");
        acad_free(result.resval.rstring);
    }
    void alert() { acedAlert(L"\nFile C:\\x could  not be opened"); }
    void question() { acutPrintf(L"\nquestion %d", AfxMessageBox(L"Go on?", MB_YESNOCANCEL | MB_DEFBUTTON2)); }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(TestDialog, CDialog)
    ON_BN_CLICKED(IDC_ECHO, &ThisClass::echo)
    ON_BN_CLICKED(IDC_ASK_FILE, &ThisClass::ask_file)
    ON_BN_CLICKED(IDC_ALERT, &ThisClass::alert)
    ON_BN_CLICKED(IDC_QUESTION, &ThisClass::question)
END_MESSAGE_MAP()

void show_dialog() {
    acDocManagerPtr()->pushResourceHandle(extension_module.hResource);
    const INT_PTR result = TestDialog().DoModal();
    acDocManagerPtr()->popResourceHandle();
    acutPrintf(L"\ndialog %d", static_cast<int>(result));
}

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

void run_built_in() {
    const int outcome = acedCommand(RTSTR, L".SETVAR", RTSTR, L"OSMODE", RTSHORT, 37, RTNONE);
    resbuf mode{};
    acedGetVar(L"OSMODE", &mode);
    acutPrintf(L"\ncommand %d %d", outcome, mode.resval.rint);
}

void run_unknown() {
    acedCommand(RTSTR, L".NOSUCH", RTNONE);
}
void throw_exception() {
    throw std::runtime_error("out of order");
}
void leak_resources() {
    acDocManagerPtr()->pushResourceHandle(extension_module.hResource);
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

void add_commands() {
    const struct {
        const wchar_t* name;
        void (*function)();
        int flags;
    } commands[] = {{L"TSTDLG", show_dialog, ACRX_CMD_MODAL},
                    {L"TSTSTATE", print_state, ACRX_CMD_TRANSPARENT},
                    {L"TSTPOINT", ask_point, ACRX_CMD_MODAL},
                    {L"TSTEVENTS", read_events, ACRX_CMD_MODAL},
                    {L"TSTSETVAR", run_built_in, ACRX_CMD_MODAL},
                    {L"TSTUNKNOWN", run_unknown, ACRX_CMD_MODAL},
                    {L"TSTTHROW", throw_exception, ACRX_CMD_MODAL},
                    {L"TSTLEAK", leak_resources, ACRX_CMD_MODAL},
                    {L"TSTHANG", hang, ACRX_CMD_MODAL},
                    {L"TSTUNLOAD", unload_itself, ACRX_CMD_MODAL}};
    for (const auto& command : commands) {
        acedRegCmds->addCommand(L"TST_GROUP", (CString(L"GLOBAL_") + command.name), command.name, command.flags,
                                command.function);
    }
}

void register_grid() {
    WNDCLASSW description{};
    description.style = CS_DBLCLKS;
    description.lpfnWndProc = grid_procedure;
    description.hInstance = extension_module.hModule;
    description.lpszClassName = L"TestModuleGrid";
    RegisterClassW(&description);
}

}  // namespace

extern "C" AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* application) {
    if (message == AcRx::kInitAppMsg) {
        acrxDynamicLinker->unlockApplication(application);
        register_grid();
        add_commands();
    } else if (message == AcRx::kUnloadAppMsg) {
        acedRegCmds->removeGroup(L"TST_GROUP");
        UnregisterClassW(L"TestModuleGrid", extension_module.hModule);
    } else {
        acutPrintf(L"\nmessage %d", message);
    }
    return AcRx::kRetOK;
}

extern "C" int acrxGetApiVersion() {
    return ACRX_API_VERSION;
}

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH && AfxInitExtensionModule(extension_module, instance)) {
        new CDynLinkLibrary(extension_module);
    } else if (reason == DLL_PROCESS_DETACH) {
        AfxTermExtensionModule(extension_module);
    }
    return TRUE;
}
