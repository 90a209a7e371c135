#include "afxapp_.h"

#include <filesystem>

#include "message_pump.h"
#include "thread_state.h"

namespace {

CWinApp* the_app = nullptr;

/// Adds the exclamation mark to a box of OK, Cancel, Yes or No buttons that has no icon of its own.
UINT with_default_icon(UINT type) {
    const UINT buttons = type & MB_TYPEMASK;
    const bool plain = buttons == MB_OK || buttons == MB_OKCANCEL || buttons == MB_YESNO || buttons == MB_YESNOCANCEL;
    return plain && !(type & MB_ICONMASK) ? type | MB_ICONEXCLAMATION : type;
}

CString program_name() {
    CString path;
    const DWORD length = ::GetModuleFileNameW(nullptr, path.GetBuffer(MAX_PATH), MAX_PATH);
    path.ReleaseBuffer(static_cast<int>(length));
    return std::filesystem::path(path.GetString()).stem().c_str();
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

BOOL CWinApp::PreTranslateMessage(MSG* message) {
    CWnd* const main = AfxGetMainWnd();
    if (CWnd::WalkPreTranslateTree(main ? main->m_hWnd : nullptr, message)) {
        return TRUE;
    }
    // Under a modeless dialog the main window keeps its accelerators; under a modal one the window is disabled.
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
