// The system's controls.
#pragma once

#include "afxwnd_.h"

class AFX_PUBLIC CStatic : public CWnd {
  public:
    CStatic() = default;
    ~CStatic() override;
    BOOL Create(LPCWSTR text, DWORD style, const RECT& rect, CWnd* parent, UINT id = 0xffff) {
        return CWnd::Create(L"STATIC", text, style, rect, parent, id);
    }
};

class AFX_PUBLIC CButton : public CWnd {
  public:
    CButton() = default;
    ~CButton() override;
    BOOL Create(LPCWSTR caption, DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(L"BUTTON", caption, style, rect, parent, id);
    }
    int GetCheck() const { return static_cast<int>(SendMessage(BM_GETCHECK)); }
    void SetCheck(int check) { SendMessage(BM_SETCHECK, static_cast<WPARAM>(check)); }
};

class AFX_PUBLIC CEdit : public CWnd {
  public:
    CEdit() = default;
    ~CEdit() override;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(L"EDIT", nullptr, style, rect, parent, id);
    }
    void SetSel(int first, int last, BOOL no_scroll = FALSE);
    void GetSel(int& first, int& last) const;
    void ReplaceSel(LPCWSTR text, BOOL can_undo = FALSE);
    BOOL GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
    void SetModify(BOOL modified = TRUE) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified)); }
    BOOL CanUndo() const { return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
    BOOL Undo() { return static_cast<BOOL>(SendMessage(EM_UNDO)); }
    void Cut() { SendMessage(WM_CUT); }
    void Copy() { SendMessage(WM_COPY); }
    void Paste() { SendMessage(WM_PASTE); }
    void Clear() { SendMessage(WM_CLEAR); }
};

class AFX_PUBLIC CScrollBar : public CWnd {
  public:
    CScrollBar() = default;
    ~CScrollBar() override;
    static CScrollBar* FromHandle(HWND window);

    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(L"SCROLLBAR", nullptr, style, rect, parent, id);
    }
};
