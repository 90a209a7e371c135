#include "grid/masked_edit.h"

using corvanes::EditEnd;

BEGIN_MESSAGE_MAP(CUGMaskedEdit, CEdit)
ON_WM_KEYDOWN()
ON_WM_CHAR()
ON_WM_KILLFOCUS()
ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

BOOL CUGMaskedEdit::PreCreateWindow(CREATESTRUCTW& creation) {
    creation.style |= ES_AUTOHSCROLL | WS_CLIPSIBLINGS;
    return CEdit::PreCreateWindow(creation);
}

void CUGMaskedEdit::begin(corvanes::CellEditOwner& owner, const CString& text, UINT key) {
    owner_ = &owner;
    SetWindowText(text);
    SetSel(0, -1);
    if (key != 0) {
        SendMessage(WM_CHAR, key, 1);
    }
}

CString CUGMaskedEdit::text() const {
    CString text;
    GetWindowText(text);
    return text;
}

void CUGMaskedEdit::end() {
    owner_ = nullptr;
}

void CUGMaskedEdit::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    if (owner_ != nullptr && (key == VK_RETURN || key == VK_TAB)) {
        owner_->end_edit(EditEnd::commit, key);
    } else if (owner_ != nullptr && key == VK_ESCAPE) {
        owner_->end_edit(EditEnd::cancel, key);
    } else {
        CEdit::OnKeyDown(key, repeat, flags);
    }
}

void CUGMaskedEdit::OnChar(UINT character, UINT repeat, UINT flags) {
    // The characters of the keys above would only make the control beep.
    if (character != L'\r' && character != L'\t' && character != VK_ESCAPE) {
        CEdit::OnChar(character, repeat, flags);
    }
}

void CUGMaskedEdit::OnKillFocus(CWnd* next) {
    CEdit::OnKillFocus(next);
    if (owner_ != nullptr) {
        owner_->end_edit(EditEnd::commit, 0);
    }
}

UINT CUGMaskedEdit::OnGetDlgCode() {
    return DLGC_WANTALLKEYS | DLGC_WANTCHARS | DLGC_HASSETSEL;
}
