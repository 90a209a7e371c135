#include "grid/drop_list.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace corvanes {

namespace {

// The unfolded list shows at most this many lines.
constexpr int lines_shown = 10;

// How far a combo box's text stands below the text of the cell under it, in pixels.
constexpr int combo_frame = 2;

// Keeps a window from painting, and from counting what it shows, while it is filled.
class PaintingOff {
  public:
    explicit PaintingOff(CWnd& window) : window_(window) { window_.SendMessage(WM_SETREDRAW, FALSE); }
    PaintingOff(const PaintingOff&) = delete;
    PaintingOff& operator=(const PaintingOff&) = delete;
    ~PaintingOff() { window_.SendMessage(WM_SETREDRAW, TRUE); }

  private:
    CWnd& window_;
};

}  // namespace

BEGIN_MESSAGE_MAP(DropList, CWnd)
    ON_WM_KEYDOWN()
    ON_WM_CHAR()
    ON_WM_KILLFOCUS()
    ON_WM_GETDLGCODE()
END_MESSAGE_MAP()

bool DropList::Prepare(CWnd& parent, const wchar_t* items) {
    std::wstring_view rest = items != nullptr ? items : L"";
    if (rest.empty()) {
        return false;
    }
    constexpr DWORD style = WS_CHILD | WS_VSCROLL | WS_CLIPSIBLINGS | CBS_DROPDOWNLIST | CBS_HASSTRINGS;
    if (m_hWnd == nullptr && !CWnd::Create(L"COMBOBOX", L"", style, CRect(0, 0, 10, 100), &parent, control_id)) {
        return false;
    }
    const PaintingOff filling(*this);
    SendMessage(CB_RESETCONTENT);
    const auto count = static_cast<WPARAM>(std::count(rest.begin(), rest.end(), L'\n')) + 1;
    SendMessage(CB_INITSTORAGE, count, static_cast<LPARAM>((rest.size() + count) * sizeof(wchar_t)));
    std::wstring item;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(L'\n'), rest.size());
        item.assign(rest.substr(0, end));
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
    return {cell.left, cell.top - combo_frame, cell.right, cell.bottom + lines_shown * line};
}

void DropList::begin(CellEditOwner& owner, const CString& text, UINT) {
    owner_ = &owner;
    former_ = text;
    chosen_ = false;
    typed_.clear();
    // The box is sized last, because setting the font has made it as high as the font asks for.
    SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), font_height() + 1);
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

int DropList::font_height() const {
    CClientDC dc(const_cast<DropList*>(this));
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, reinterpret_cast<HFONT>(::SendMessageW(m_hWnd, WM_GETFONT, 0, 0)));
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc.m_hDC, &metrics);
    ::SelectObject(dc.m_hDC, former);
    return metrics.tmHeight;
}

LRESULT DropList::find_item(LRESULT after, const std::wstring& beginning) const {
    return ::SendMessageW(m_hWnd, CB_FINDSTRING, static_cast<WPARAM>(after),
                          reinterpret_cast<LPARAM>(beginning.c_str()));
}

void DropList::OnChar(UINT character, UINT, UINT) {
    if (character < L' ') {
        typed_.clear();
        return;
    }
    typed_.add(static_cast<wchar_t>(character), ::GetTickCount64());
    const LRESULT selected = SendMessage(CB_GETCURSEL);
    // A search begins after the item that it is given; -1 stands before the first.
    LRESULT found = find_item(std::max<LRESULT>(selected, 0) - 1, typed_.letters());
    if (typed_.is_one_letter() && (found == CB_ERR || found == selected)) {
        found = find_item(selected, typed_.letters().substr(0, 1));
    }
    if (found != CB_ERR) {
        SendMessage(CB_SETCURSEL, static_cast<WPARAM>(found));
    }
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
