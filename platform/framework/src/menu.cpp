#include "afxmenu_.h"

#include "afxapp_.h"
#include "thread_state.h"

using framework::thread_state;

CMenu::~CMenu() {
    if (thread_state().menus.owns(this)) {
        DestroyMenu();
    }
}

CMenu* CMenu::FromHandle(HMENU menu) {
    return thread_state().menus.object<CMenu>(menu);
}

BOOL CMenu::Attach(HMENU menu) {
    auto& menus = thread_state().menus;
    if (!menu || !menus.attach(menu, this)) {
        return FALSE;
    }
    if (m_hMenu && m_hMenu != menu && menus.owns(this)) {
        DestroyMenu();
    }
    m_hMenu = menu;
    return TRUE;
}

HMENU CMenu::Detach() {
    auto& menus = thread_state().menus;
    if (menus.owns(this)) {
        menus.detach(m_hMenu);
    }
    return std::exchange(m_hMenu, nullptr);
}

BOOL CMenu::LoadMenu(LPCWSTR name) {
    return Attach(::LoadMenuW(AfxFindResourceHandle(name, reinterpret_cast<LPCWSTR>(RT_MENU)), name));
}

BOOL CMenu::DestroyMenu() {
    return m_hMenu && ::DestroyMenu(Detach());
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, LPCWSTR text) {
    return ::AppendMenuW(m_hMenu, flags, id, text);
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* window) {
    return ::TrackPopupMenu(m_hMenu, flags, x, y, 0, window ? window->m_hWnd : nullptr, nullptr);
}
