#include "grid/drop_list.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace corvanes {

namespace {

// The unfolded list shows at most this many lines.
constexpr int lines_shown = 10;

// What a combo box adds to the height of its text, in pixels.
constexpr int combo_frame = 6;

}  // namespace

BEGIN_MESSAGE_MAP(DropList, CWnd)
    ON_WM_KEYDOWN()
    ON_WM_KILLFOCUS()
    ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

bool DropList::Prepare(CWnd& parent, const wchar_t* items, int height) {
    std::wstring_view rest = items != nullptr ? items : L"";
    if (rest.empty()) {
        return false;
    }
    constexpr DWORD style = WS_CHILD | WS_VSCROLL | WS_CLIPSIBLINGS | CBS_DROPDOWNLIST | CBS_HASSTRINGS;
    if (m_hWnd == nullptr && !CWnd::Create(L"COMBOBOX", L"", style, CRect(0, 0, 10, 100), &parent, control_id)) {
        return false;
    }
    SendMessage(CB_RESETCONTENT);
    cell_height_ = height;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(L'\n'), rest.size());
        const std::wstring item(rest.substr(0, end));
        SendMessage(CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.c_str()));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return true;
}

void DropList::Unfold() {
    SendMessage(CB_SHOWDROPDOWN, TRUE);
}

RECT DropList::bounds(const RECT& cell) const {
    const int line = cell.bottom - cell.top;
    return {cell.left, cell.top, cell.right, cell.bottom + lines_shown * line};
}

void DropList::begin(CellEditOwner& owner, const CString& text, UINT) {
    owner_ = &owner;
    former_ = text;
    chosen_ = false;
    // Only now: setting the font has made the box as high as the font asks for.
    SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), std::max(1, cell_height_ - combo_frame));
    const LRESULT item =
        SendMessage(CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.GetString()));
    SendMessage(CB_SETCURSEL, static_cast<WPARAM>(item));
}

CString DropList::text() const {
    const LRESULT item = ::SendMessageW(m_hWnd, CB_GETCURSEL, 0, 0);
    if (item == CB_ERR) {
        return former_;
    }
    std::wstring chosen(static_cast<std::size_t>(::SendMessageW(m_hWnd, CB_GETLBTEXTLEN, item, 0)), L'\0');
    ::SendMessageW(m_hWnd, CB_GETLBTEXT, item, reinterpret_cast<LPARAM>(chosen.data()));
    return chosen.c_str();
}

void DropList::end() {
    owner_ = nullptr;
}

void DropList::Notified(UINT code) {
    if (code == CBN_SELENDOK) {
        chosen_ = true;
    } else if (code == CBN_SELENDCANCEL) {
        chosen_ = false;
    } else if (code == CBN_CLOSEUP && owner_ != nullptr) {
        owner_->end_edit(chosen_ ? EditEnd::commit : EditEnd::cancel, 0);
    }
}

// Only a refused choice leaves the box open with its list folded.
void DropList::OnKeyDown(UINT key, UINT repeat, UINT flags) {
    const bool unfolded = SendMessage(CB_GETDROPPEDSTATE) != 0;
    if (!unfolded && owner_ != nullptr && (key == VK_ESCAPE || key == VK_RETURN || key == VK_TAB)) {
        owner_->end_edit(key == VK_ESCAPE ? EditEnd::cancel : EditEnd::commit, key);
        return;
    }
    CWnd::OnKeyDown(key, repeat, flags);
}

void DropList::OnKillFocus(CWnd* next) {
    CWnd::OnKillFocus(next);
    if (owner_ != nullptr) {
        owner_->end_edit(chosen_ ? EditEnd::commit : EditEnd::cancel, 0);
    }
}

UINT DropList::OnGetDlgCode() {
    return DLGC_WANTALLKEYS;
}

}  // namespace corvanes
