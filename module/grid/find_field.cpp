#include "grid/find_field.h"

#include "bidi/reordering.h"

namespace corvanes {

BEGIN_MESSAGE_MAP(FindField, CUGMultiEdit)
    ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

void FindField::SetText(const std::wstring& text) {
    SetLocked(true);
    ResetText(text.c_str(), 1);
    FollowDirection();
}

UINT FindField::OnGetDlgCode() {
    return DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_HASSETSEL;
}

void FindField::OnTextChanged(int length) {
    CUGMultiEdit::OnTextChanged(length);
    FollowDirection();
}

void FindField::FollowDirection() {
    const std::wstring text = TypedText();
    if (!text.empty() && contains_right_to_left(text) != RightToLeft()) {
        SetDirection(RightToLeft() ? ParagraphDirection::left_to_right : ParagraphDirection::right_to_left);
    }
}

}  // namespace corvanes
