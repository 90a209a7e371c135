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
    UINT GetState() const { return static_cast<UINT>(SendMessage(BM_GETSTATE)); }
    void SetButtonStyle(UINT style, BOOL redraw = TRUE) { SendMessage(BM_SETSTYLE, style, redraw); }
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
    void SetLimitText(UINT characters) { SendMessage(EM_SETLIMITTEXT, characters); }
    BOOL GetModify() const { return static_cast<BOOL>(SendMessage(EM_GETMODIFY)); }
    void SetModify(BOOL modified = TRUE) { SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified)); }
    BOOL SetReadOnly(BOOL read_only = TRUE) { return static_cast<BOOL>(SendMessage(EM_SETREADONLY, read_only)); }
    int GetLineCount() const { return static_cast<int>(SendMessage(EM_GETLINECOUNT)); }
    BOOL CanUndo() const { return static_cast<BOOL>(SendMessage(EM_CANUNDO)); }
    BOOL Undo() { return static_cast<BOOL>(SendMessage(EM_UNDO)); }
    void Cut() { SendMessage(WM_CUT); }
    void Copy() { SendMessage(WM_COPY); }
    void Paste() { SendMessage(WM_PASTE); }
    void Clear() { SendMessage(WM_CLEAR); }
};

class AFX_PUBLIC CListBox : public CWnd {
  public:
    CListBox() = default;
    ~CListBox() override;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(L"LISTBOX", nullptr, style, rect, parent, id);
    }
    // Indexes; LB_ERR when there is no such item.
    int AddString(LPCWSTR text) { return send(LB_ADDSTRING, 0, text); }
    int InsertString(int index, LPCWSTR text) { return send(LB_INSERTSTRING, index, text); }
    int FindStringExact(int after, LPCWSTR text) const { return send(LB_FINDSTRINGEXACT, after, text); }
    int SelectString(int after, LPCWSTR text) { return send(LB_SELECTSTRING, after, text); }
    int DeleteString(int index) { return send(LB_DELETESTRING, index); }
    void ResetContent() { SendMessage(LB_RESETCONTENT); }
    int GetCount() const { return send(LB_GETCOUNT); }
    int GetCurSel() const { return send(LB_GETCURSEL); }
    int SetCurSel(int index) { return send(LB_SETCURSEL, index); }
    int GetTextLen(int index) const { return send(LB_GETTEXTLEN, index); }
    /// An empty text when there is no such item.
    void GetText(int index, CString& text) const;
    DWORD_PTR GetItemData(int index) const { return static_cast<DWORD_PTR>(SendMessage(LB_GETITEMDATA, index)); }
    int SetItemData(int index, DWORD_PTR data);
    int GetItemHeight(int index) const { return send(LB_GETITEMHEIGHT, index); }
    int SetTopIndex(int index) { return send(LB_SETTOPINDEX, index); }

  private:
    int send(UINT message, int index = 0, LPCWSTR text = nullptr) const {
        return static_cast<int>(SendMessage(message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
};

class AFX_PUBLIC CComboBox : public CWnd {
  public:
    CComboBox() = default;
    ~CComboBox() override;
    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(L"COMBOBOX", nullptr, style, rect, parent, id);
    }
    // Indexes; CB_ERR when there is no such item.
    int AddString(LPCWSTR text) { return send(CB_ADDSTRING, 0, text); }
    int FindStringExact(int after, LPCWSTR text) const { return send(CB_FINDSTRINGEXACT, after, text); }
    int SelectString(int after, LPCWSTR text) { return send(CB_SELECTSTRING, after, text); }
    void ResetContent() { SendMessage(CB_RESETCONTENT); }
    int GetCount() const { return send(CB_GETCOUNT); }
    int GetCurSel() const { return send(CB_GETCURSEL); }
    int SetCurSel(int index) { return send(CB_SETCURSEL, index); }
    /// An empty text when there is no such item.
    void GetLBText(int index, CString& text) const;
    void ShowDropDown(BOOL show = TRUE) { SendMessage(CB_SHOWDROPDOWN, static_cast<WPARAM>(show)); }

  private:
    int send(UINT message, int index = 0, LPCWSTR text = nullptr) const {
        return static_cast<int>(SendMessage(message, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text)));
    }
};

class AFX_PUBLIC CScrollBar : public CWnd {
  public:
    CScrollBar() = default;
    ~CScrollBar() override;
    static CScrollBar* FromHandle(HWND window);

    BOOL Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
        return CWnd::Create(L"SCROLLBAR", nullptr, style, rect, parent, id);
    }
    int GetScrollPos() const { return CWnd::GetScrollPos(SB_CTL); }
    int SetScrollPos(int position, BOOL redraw = TRUE) { return CWnd::SetScrollPos(SB_CTL, position, redraw); }
    void GetScrollRange(int* first, int* last) const { CWnd::GetScrollRange(SB_CTL, first, last); }
    void SetScrollRange(int first, int last, BOOL redraw = TRUE) { CWnd::SetScrollRange(SB_CTL, first, last, redraw); }
    BOOL GetScrollInfo(SCROLLINFO* info, UINT mask = SIF_ALL) const { return CWnd::GetScrollInfo(SB_CTL, info, mask); }
    BOOL SetScrollInfo(SCROLLINFO* info, BOOL redraw = TRUE) { return CWnd::SetScrollInfo(SB_CTL, info, redraw); }
    BOOL EnableScrollBar(UINT flags = ESB_ENABLE_BOTH) { return CWnd::EnableScrollBar(SB_CTL, flags); }
};
