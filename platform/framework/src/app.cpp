#include "afxapp_.h"

#include "message_pump.h"
#include "thread_state.h"

namespace {

CWinApp* the_app = nullptr;

/// A box that asks nothing in particular still wants attention.
UINT with_default_icon(UINT type) {
    const UINT buttons = type & MB_TYPEMASK;
    const bool plain = buttons == MB_OK || buttons == MB_OKCANCEL || buttons == MB_YESNO || buttons == MB_YESNOCANCEL;
    return plain && !(type & MB_ICONMASK) ? type | MB_ICONEXCLAMATION : type;
}

CString program_name() {
    CString path;
    const DWORD length = ::GetModuleFileNameW(nullptr, path.GetBuffer(MAX_PATH), MAX_PATH);
    path.ReleaseBuffer(static_cast<int>(length));
    const CString name = path.Mid(path.ReverseFind(L'\\') + 1);
    const int dot = name.ReverseFind(L'.');
    return dot < 0 ? name : name.Left(dot);
}

}  // namespace

CWinApp::CWinApp(LPCWSTR name) : m_strAppName(name ? CString(name) : program_name()) {
    the_app = this;
}

CWinApp::~CWinApp() {
    if (the_app == this) {
        the_app = nullptr;
    }
}

int CWinApp::Run() {
    LONG idle_count = 0;
    for (bool idle_due = true;;) {
        if (idle_due && framework::queue_is_empty()) {
            idle_due = OnIdle(idle_count++);
            continue;
        }
        MSG message;
        if (!framework::pump_message(message)) {
            exit_code_ = framework::thread_state().exit_code;
            return ExitInstance();
        }
        if (framework::is_idle_message(message)) {
            idle_due = true;
            idle_count = 0;
        }
    }
}

BOOL CWinApp::PreTranslateMessage(MSG* message) {
    CWnd* const main = AfxGetMainWnd();
    if (CWnd::WalkPreTranslateTree(main ? main->m_hWnd : nullptr, message)) {
        return TRUE;
    }
    // A modeless dialog leaves the main window its accelerators; under a modal one it is disabled.
    if (!main || !message->hwnd || !main->IsWindowEnabled()) {
        return FALSE;
    }
    return CWnd::FromHandle(message->hwnd)->GetTopLevelParent() != main && main->PreTranslateMessage(message);
}

BOOL CWinApp::OnIdle(LONG) {
    framework::thread_state().delete_temporary_objects();
    return FALSE;
}

CWinApp* AfxGetApp() {
    return the_app;
}

CWnd* AfxGetMainWnd() {
    return the_app ? the_app->m_pMainWnd : nullptr;
}

BOOL AfxPumpMessage() {
    MSG message;
    return framework::pump_message(message);
}

int AfxMessageBox(LPCWSTR text, UINT type, UINT) {
    const CWnd* const main = AfxGetMainWnd();
    const HWND owner = main ? ::GetLastActivePopup(main->m_hWnd) : ::GetActiveWindow();
    const CString caption = the_app ? the_app->m_strAppName : program_name();
    return ::MessageBoxW(owner, text, caption, with_default_icon(type) | (owner ? 0u : MB_TASKMODAL));
}

int AfxMessageBox(UINT text_id, UINT type, UINT help_id) {
    CString text;
    text.LoadString(text_id);
    return AfxMessageBox(text, type, help_id);
}
