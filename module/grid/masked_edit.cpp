#include "grid/masked_edit.h"

#include "bidi/reordering.h"
#include "grid/raised_flag.h"

using namespace corvanes;

BEGIN_MESSAGE_MAP(CUGMaskedEdit, CUGMultiEdit)
    ON_WM_KEYDOWN()
    ON_WM_KILLFOCUS()
END_MESSAGE_MAP()

void CUGMaskedEdit::begin(CellEditOwner& owner, const CString& text, UINT key) {
    owner_ = &owner;
    given_ = text;
    direction_chosen_ = false;
    SetLocked(true);
    TakeDirection(first_direction(text.GetString(), key));
    ResetText(text, 1);
    begun_ = TypedText();
    CaretToEnd();
    if (key != 0) {
        SelectAll();
        TypeFirstCharacter(static_cast<wchar_t>(key));
    }
}

ParagraphDirection CUGMaskedEdit::first_direction(std::wstring_view text, UINT key) const {
    const auto first = static_cast<wchar_t>(key);
    const std::wstring_view shown = key != 0 ? std::wstring_view(&first, 1) : text;
    if (!shown.empty()) {
        return contains_right_to_left(shown) ? ParagraphDirection::right_to_left : ParagraphDirection::left_to_right;
    }
    const bool hebrew_keyboard = LOWORD(reinterpret_cast<ULONG_PTR>(::GetKeyboardLayout(0))) == hebrew_language;
    return direction_when_empty_.value_or(hebrew_keyboard ? ParagraphDirection::right_to_left
                                                          : ParagraphDirection::left_to_right);
}

void CUGMaskedEdit::TakeDirection(ParagraphDirection direction) {
    const RaisedFlag own(taking_direction_);
    SetDirection(direction);
}

void CUGMaskedEdit::OnDirectionChanged(int direction) {
    CUGMultiEdit::OnDirectionChanged(direction);
    direction_chosen_ = direction_chosen_ || !taking_direction_;
}

// The grid will show a text with Hebrew from the right, so the editor goes on from the right as well.
void CUGMaskedEdit::OnTextChanged(int length) {
    CUGMultiEdit::OnTextChanged(length);
    if (!direction_chosen_ && !RightToLeft() && contains_right_to_left(TypedText())) {
        TakeDirection(ParagraphDirection::right_to_left);
    }
}

void CUGMaskedEdit::point_at(POINT point) {
    CaretTo(point);
}

CString CUGMaskedEdit::text() const {
    const std::wstring typed = TypedText();
    return typed == begun_ ? given_ : CString(typed.c_str());
}

void CUGMaskedEdit::end() {
    owner_ = nullptr;
}

void CUGMaskedEdit::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    const bool leaves = key == VK_RETURN || key == VK_TAB || LeavesToRow(key);
    if (owner_ != nullptr && leaves) {
        owner_->end_edit(EditEnd::commit, key);
    } else if (owner_ != nullptr && key == VK_ESCAPE) {
        owner_->end_edit(EditEnd::cancel, key);
    } else {
        CUGMultiEdit::OnKeyDown(key, repeat, flags);
    }
}

// In a text of several lines the arrows go from line to line; with another key held they are left to the editor.
bool CUGMaskedEdit::LeavesToRow(UINT key) const {
    const auto held = [](int other) { return ::GetKeyState(other) < 0; };
    return (key == VK_UP || key == VK_DOWN) && !held(VK_SHIFT) && !held(VK_CONTROL) &&
           TypedText().find(L'\n') == std::wstring::npos;
}

void CUGMaskedEdit::OnKillFocus(CWnd* next) {
    CUGMultiEdit::OnKillFocus(next);
    if (owner_ != nullptr) {
        owner_->end_edit(EditEnd::commit, 0);
    }
}
