#include "grid/masked_edit.h"

#include "bidi/reordering.h"

using namespace corvanes;

namespace {

ParagraphDirection direction_of(const std::wstring& text, UINT key) {
    const bool hebrew_keyboard = LOWORD(reinterpret_cast<ULONG_PTR>(::GetKeyboardLayout(0))) == hebrew_language;
    const auto first = static_cast<wchar_t>(key);
    const bool right_to_left = key != 0       ? contains_right_to_left({&first, 1})
                               : text.empty() ? hebrew_keyboard
                                              : contains_right_to_left(text);
    return right_to_left ? ParagraphDirection::right_to_left : ParagraphDirection::left_to_right;
}

}  // namespace

BEGIN_MESSAGE_MAP(CUGMaskedEdit, CUGMultiEdit)
    ON_WM_KEYDOWN()
    ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

void CUGMaskedEdit::begin(CellEditOwner& owner, const CString& text, UINT key) {
    owner_ = &owner;
    given_ = text;
    SetLocked(true);
    SetDirection(direction_of(text.GetString(), key));
    ResetText(text, 1);
    begun_ = TypedText();
    SelectAll();
    if (key != 0) {
        TypeFirstCharacter(static_cast<wchar_t>(key));
    }
}

CString CUGMaskedEdit::text() const {
    const std::wstring typed = TypedText();
    return typed == begun_ ? given_ : CString(typed.c_str());
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
        CUGMultiEdit::OnKeyDown(key, repeat, flags);
    }
}

void CUGMaskedEdit::OnKillFocus(CWnd* next) {
    CUGMultiEdit::OnKillFocus(next);
    if (owner_ != nullptr) {
        owner_->end_edit(EditEnd::commit, 0);
    }
}
