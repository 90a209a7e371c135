#include "afxctrls_.h"

#include "thread_state.h"

CStatic::~CStatic() = default;
CButton::~CButton() = default;
CEdit::~CEdit() = default;
CListBox::~CListBox() = default;
CComboBox::~CComboBox() = default;
CScrollBar::~CScrollBar() = default;

void CEdit::SetSel(int first, int last, BOOL no_scroll) {
    SendMessage(EM_SETSEL, static_cast<WPARAM>(first), last);
    if (!no_scroll) {
        SendMessage(EM_SCROLLCARET);
    }
}

void CEdit::GetSel(int& first, int& last) const {
    DWORD from = 0, to = 0;
    SendMessage(EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    first = static_cast<int>(from);
    last = static_cast<int>(to);
}

void CEdit::ReplaceSel(LPCWSTR text, BOOL can_undo) {
    SendMessage(EM_REPLACESEL, static_cast<WPARAM>(can_undo), reinterpret_cast<LPARAM>(text));
}

void CListBox::GetText(int index, CString& text) const {
    text.Empty();
    const int length = GetTextLen(index);
    if (length == LB_ERR) {
        return;
    }
    send(LB_GETTEXT, index, text.GetBuffer(length + 1));
    text.ReleaseBuffer();
}

int CListBox::SetItemData(int index, DWORD_PTR data) {
    return static_cast<int>(SendMessage(LB_SETITEMDATA, static_cast<WPARAM>(index), static_cast<LPARAM>(data)));
}

void CComboBox::GetLBText(int index, CString& text) const {
    text.Empty();
    const int length = send(CB_GETLBTEXTLEN, index);
    if (length == CB_ERR) {
        return;
    }
    send(CB_GETLBTEXT, index, text.GetBuffer(length + 1));
    text.ReleaseBuffer();
}

CScrollBar* CScrollBar::FromHandle(HWND window) {
    return framework::thread_state().windows.object<CScrollBar>(window);
}
