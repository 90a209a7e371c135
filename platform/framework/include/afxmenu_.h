// CMenu: an owner of a menu.
#pragma once

#include "afxwnd_.h"

class AFX_PUBLIC CMenu : public CObject {
  public:
    CMenu() = default;
    ~CMenu() override;
    /// A temporary object for a menu that no object owns, as CWnd::FromHandle gives.
    static CMenu* FromHandle(HMENU menu);

    operator HMENU() const { return m_hMenu; }
    BOOL Attach(HMENU menu);
    HMENU Detach();
    BOOL CreateMenu() { return Attach(::CreateMenu()); }
    BOOL CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
    BOOL LoadMenu(LPCWSTR name);
    BOOL LoadMenu(UINT id) { return LoadMenu(MAKEINTRESOURCEW(id)); }
    BOOL DestroyMenu();

    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, LPCWSTR text = nullptr);
    UINT EnableMenuItem(UINT item, UINT flags) { return ::EnableMenuItem(m_hMenu, item, flags); }
    UINT CheckMenuItem(UINT item, UINT flags) { return ::CheckMenuItem(m_hMenu, item, flags); }
    CMenu* GetSubMenu(int position) const { return FromHandle(::GetSubMenu(m_hMenu, position)); }
    /// Shows the menu. With TPM_RETURNCMD it returns the chosen command; otherwise the window gets the command.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* window);

    HMENU m_hMenu = nullptr;
};
