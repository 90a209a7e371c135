// CWnd: how a message finds its handler.
#include "afxwin.h"

#include "thread_state.h"

using framework::Scoped;
using framework::thread_state;

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
    ON_WM_NCDESTROY()
END_MESSAGE_MAP()

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (!OnWndMsg(message, wParam, lParam, &result)) {
        result = DefWindowProc(message, wParam, lParam);
    }
    return result;
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND) {
        const BOOL taken = OnCommand(wParam, lParam);
        *result = taken;
        return taken;
    }

    const bool asks_color = message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
    const AFX_MSGMAP_ENTRY* entry = FindMessageEntry(GetMessageMap(), asks_color ? WM_CTLCOLOR : message, 0, 0);
    if (!entry) {
        return FALSE;
    }
    AFX_MESSAGE handled{message, wParam, lParam, 0};
    const BOOL taken = entry->invoke(this, handled);
    *result = handled.result;
    return taken;
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (window_procedure_) {
        return ::CallWindowProcW(window_procedure_, m_hWnd, message, wParam, lParam);
    }
    return ::DefWindowProcW(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const MSG& handled = thread_state().handled;
    return DefWindowProc(handled.message, handled.wParam, handled.lParam);
}

const MSG* CWnd::GetCurrentMessage() {
    return &thread_state().handled;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT id = LOWORD(wParam);
    const bool from_control = lParam != 0;
    if (!from_control && id == 0) {
        return FALSE;
    }
    if (from_control && thread_state().exchanging == m_hWnd) {
        return TRUE;
    }
    return OnCmdMsg(id, from_control ? HIWORD(wParam) : CN_COMMAND, nullptr, nullptr);
}

BOOL CWnd::UpdateData(BOOL save) {
    if (!m_hWnd) {
        return FALSE;
    }
    CDataExchange exchange(this, save);
    const Scoped<HWND> exchanging(thread_state().exchanging, m_hWnd);
    DoDataExchange(&exchange);
    return TRUE;
}
