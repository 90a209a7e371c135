// CWnd: its handle, its creation and its end.
#include "afxwin.h"

#include "creation_hook.h"
#include "window_procedure.h"

using framework::thread_state;

CWnd::~CWnd() {
    if (thread_state().windows.owns(this)) {
        CWnd::DestroyWindow();
    }
}

CWnd* CWnd::FromHandle(HWND window) {
    return thread_state().windows.object<CWnd>(window);
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
    return thread_state().windows.owner(window);
}

void CWnd::DeleteTempMap() {
    thread_state().delete_temporary_objects();
}

BOOL CWnd::Attach(HWND window) {
    if (!window || m_hWnd || !thread_state().windows.attach(window, this)) {
        return FALSE;
    }
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach() {
    auto& windows = thread_state().windows;
    if (windows.owns(this)) {
        windows.detach(m_hWnd);
    }
    return std::exchange(m_hWnd, nullptr);
}

void CWnd::take_over_messages() {
    const auto ours = reinterpret_cast<LONG_PTR>(&WindowProcedure::procedure);
    const LONG_PTR before = ::SetWindowLongPtrW(m_hWnd, GWLP_WNDPROC, ours);
    if (before != ours) {
        window_procedure_ = reinterpret_cast<WNDPROC>(before);
    }
}

BOOL CWnd::SubclassWindow(HWND window) {
    if (!Attach(window)) {
        return FALSE;
    }
    PreSubclassWindow();
    take_over_messages();
    return TRUE;
}

BOOL CWnd::Create(LPCWSTR class_name, LPCWSTR title, DWORD style, const RECT& rect, CWnd* parent, UINT id,
                  void* parameter) {
    return CreateEx(0, class_name, title, style | WS_CHILD, rect, parent, id, parameter);
}

BOOL CWnd::CreateEx(DWORD ex_style, LPCWSTR class_name, LPCWSTR title, DWORD style, const RECT& rect, CWnd* parent,
                    UINT id, void* parameter) {
    return CreateEx(ex_style, class_name, title, style, rect.left, rect.top, rect.right - rect.left,
                    rect.bottom - rect.top, parent ? parent->m_hWnd : nullptr,
                    reinterpret_cast<HMENU>(static_cast<UINT_PTR>(id)), parameter);
}

BOOL CWnd::CreateEx(DWORD ex_style, LPCWSTR class_name, LPCWSTR title, DWORD style, int x, int y, int width, int height,
                    HWND parent, HMENU menu_or_id, void* parameter) {
    CREATESTRUCTW creation{parameter, AfxGetInstanceHandle(),   menu_or_id, parent,     height,  width, y,
                           x,         static_cast<LONG>(style), title,      class_name, ex_style};
    if (m_hWnd || !PreCreateWindow(creation)) {
        return FALSE;
    }
    CreationHook hook(this);
    const HWND window =
        ::CreateWindowExW(creation.dwExStyle, creation.lpszClass, creation.lpszName, static_cast<DWORD>(creation.style),
                          creation.x, creation.y, creation.cx, creation.cy, creation.hwndParent, creation.hMenu,
                          creation.hInstance, creation.lpCreateParams);
    // A window that was made and failed later has called PostNcDestroy at its end; one that was never made has not.
    if (!hook.window_came()) {
        PostNcDestroy();
    }
    return window != nullptr;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCTW& creation) {
    if (!creation.lpszClass) {
        creation.lpszClass =
            AfxRegisterWndClass(CS_DBLCLKS, ::LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_ARROW)));
    }
    return TRUE;
}

BOOL CWnd::DestroyWindow() {
    if (!m_hWnd) {
        return FALSE;
    }
    // This object must not be touched after its window was destroyed: PostNcDestroy may have deleted it.
    const HWND window = m_hWnd;
    const bool receives_messages =
        ::GetWindowLongPtrW(window, GWLP_WNDPROC) == reinterpret_cast<LONG_PTR>(&WindowProcedure::procedure);
    const BOOL destroyed = ::DestroyWindow(window);
    if (destroyed && !receives_messages && thread_state().windows.owner(window) == this) {
        Detach();
    }
    return destroyed;
}

void CWnd::OnNcDestroy() {
    const HWND window = m_hWnd;
    Default();
    if (const WNDPROC before = std::exchange(window_procedure_, nullptr)) {
        const auto ours = reinterpret_cast<LONG_PTR>(&WindowProcedure::procedure);
        if (::GetWindowLongPtrW(window, GWLP_WNDPROC) == ours) {
            ::SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(before));
        }
    }
    Detach();
    if (in_modal_loop_) {
        continue_modal_ = false;
        ::PostThreadMessageW(::GetCurrentThreadId(), WM_NULL, 0, 0);
    }
    CWinApp* const app = AfxGetApp();
    if (app && app->m_pMainWnd == this) {
        app->m_pMainWnd = nullptr;
        ::PostQuitMessage(0);
    }
    PostNcDestroy();
}
