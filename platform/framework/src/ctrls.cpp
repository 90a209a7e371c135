#include "afxctrls_.h"

#include "thread_state.h"

CStatic::~CStatic() = default;
CButton::~CButton() = default;
CEdit::~CEdit() = default;
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

CScrollBar* CScrollBar::FromHandle(HWND window) {
    return framework::thread_state().windows.object<CScrollBar>(window);
}
