// The editor's text, language and scrolling.
#include "bidi/multi_edit.h"

#include <algorithm>
#include <cwchar>

#include "bidi/draw_bidi_text.h"

using namespace corvanes;

namespace {

/// Pixels between the window's edges and the text, so that the caret shows at both ends of a line.
constexpr int text_margin = 2;

/// The editor's window with its font selected.
class FontContext {
  public:
    FontContext(HWND window, HFONT font) : window_(window), dc_(::GetDC(window)), former_(::SelectObject(dc_, font)) {}
    ~FontContext() {
        ::SelectObject(dc_, former_);
        ::ReleaseDC(window_, dc_);
    }
    FontContext(const FontContext&) = delete;
    FontContext& operator=(const FontContext&) = delete;
    HDC get() const { return dc_; }

  private:
    HWND window_;
    HDC dc_;
    HGDIOBJ former_;
};

int height_of_lines(HDC dc) {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    return std::max(1, static_cast<int>(metrics.tmHeight));
}

LanguageId keyboard_language() {
    return LOWORD(reinterpret_cast<ULONG_PTR>(::GetKeyboardLayout(0)));
}

}  // namespace

CUGMultiEdit::CUGMultiEdit() : font_(static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT))) {
    language_.current = keyboard_language();
}

int CUGMultiEdit::OnCreate(CREATESTRUCTW* creation) {
    const int result = CEdit::OnCreate(creation);
    if (result != -1) {
        line_height_ = height_of_lines(FontContext(m_hWnd, font_).get());
        ResetText(creation->lpszName, 1);
    }
    return result;
}

void CUGMultiEdit::ResetText(const wchar_t* text, int from_logical) {
    language_ = {keyboard_language(), false};
    first_visible_column_ = 0;
    first_visible_line_ = 0;
    editing_.reset(text != nullptr ? text : L"", from_logical != 0);
    UpdateScrollRanges();
    Redraw();
}

void CUGMultiEdit::SetDirection(ParagraphDirection direction) {
    const bool right_to_left = direction == ParagraphDirection::right_to_left;
    editing_.set_right_to_left(right_to_left);
    alignment_ = right_to_left ? align_right : 0U;
    ScrollToCaret();
    Redraw();
    OnDirectionChanged(static_cast<int>(direction));
}

void CUGMultiEdit::Edit(const std::function<void(TextEditing&)>& change) {
    const std::wstring former = TypedText();
    const size_t former_caret = editing_.caret().index;
    const std::vector<VisibleText> former_rows = VisibleRows();
    change(editing_);
    const bool text_changed = TypedText() != former;
    if (text_changed) {
        NotifyParent(EN_UPDATE);
    }
    UpdateScrollRanges();
    ScrollToCaret();
    RedrawChangedRows(former_rows);
    if (text_changed) {
        NotifyParent(EN_CHANGE);
        OnTextChanged(static_cast<int>(TypedText().size()));
    }
    if (editing_.caret().index != former_caret) {
        OnCaretMoved(static_cast<int>(editing_.caret().index));
    }
}

void CUGMultiEdit::ReplaceSelection(std::wstring_view text) {
    bool fits = true;
    Edit([&](TextEditing& editing) { fits = editing.replace_selection(text); });
    if (!fits) {
        ::MessageBeep(MB_OK);
        NotifyParent(EN_MAXTEXT);
    }
}

void CUGMultiEdit::SelectAll() {
    Edit([](TextEditing& editing) { editing.select(0, editing.model().logical().size()); });
}

void CUGMultiEdit::CaretToEnd() {
    Edit([](TextEditing& editing) { editing.move(Motion::text_end, false); });
}

void CUGMultiEdit::OnLanguageChanged(LANGID language, WORD second_word) {
    TellOwner(language_changed_message, language, second_word);
}

void CUGMultiEdit::OnTextChanged(int length) {
    TellOwner(text_changed_message, static_cast<WPARAM>(length), 0);
}

void CUGMultiEdit::OnCaretMoved(int index) {
    TellOwner(caret_moved_message, static_cast<WPARAM>(index), 0);
}

void CUGMultiEdit::OnDirectionChanged(int direction) {
    TellOwner(direction_changed_message, static_cast<WPARAM>(direction), 0);
}

void CUGMultiEdit::TellOwner(UINT message, WPARAM wParam, LPARAM lParam) const {
    HWND owner = ::GetParent(m_hWnd);
    while (owner != nullptr && (::GetWindowLongPtrW(owner, GWL_STYLE) & WS_CHILD) != 0) {
        owner = ::GetParent(owner);
    }
    if (owner != nullptr) {
        ::SendMessageW(owner, message, wParam, lParam);
    }
}

void CUGMultiEdit::NotifyParent(WORD notification) const {
    if (m_hWnd != nullptr) {
        const WPARAM code = MAKEWPARAM(::GetDlgCtrlID(m_hWnd), notification);
        ::SendMessageW(::GetParent(m_hWnd), WM_COMMAND, code, reinterpret_cast<LPARAM>(m_hWnd));
    }
}

LRESULT CUGMultiEdit::OnInputLanguage(WPARAM, LPARAM layout) {
    const auto language = LOWORD(layout);
    const auto second_word = HIWORD(layout);
    language_ = {language, false};
    const LRESULT result = Default();
    UpdateCaret();
    RedrawWindow(nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
    OnLanguageChanged(language, second_word);
    return result;
}

LRESULT CUGMultiEdit::OnActivateLayout(WPARAM layout, LPARAM) {
    if (::ActivateKeyboardLayout(reinterpret_cast<HKL>(layout), 0) == nullptr) {
        wchar_t name[KL_NAMELENGTH];
        std::swprintf(name, KL_NAMELENGTH, L"%08X", static_cast<unsigned>(layout));
        ::LoadKeyboardLayoutW(name, KLF_ACTIVATE);
    }
    language_ = {LOWORD(layout), false};
    return 0;
}

LRESULT CUGMultiEdit::OnSetFontMessage(WPARAM font, LPARAM redraw) {
    const LRESULT result = Default();
    font_ = font != 0 ? reinterpret_cast<HFONT>(font) : static_cast<HFONT>(::GetStockObject(DEFAULT_GUI_FONT));
    line_height_ = height_of_lines(FontContext(m_hWnd, font_).get());
    widths_.clear();
    ScrollToCaret();
    if (LOWORD(redraw) != 0) {
        Redraw();
    }
    return result;
}

void CUGMultiEdit::OnHScroll(UINT code, UINT position, CScrollBar*) {
    const int line_length = static_cast<int>(editing_.model().visual().size());
    const int step = code == SB_LINELEFT ? -1 : code == SB_LINERIGHT ? 1 : code == SB_PAGELEFT ? -8 : 8;
    if (code == SB_THUMBTRACK || code == SB_THUMBPOSITION) {
        first_visible_column_ = std::min(static_cast<int>(position), line_length);
    } else if (code <= SB_PAGERIGHT) {
        first_visible_column_ = std::clamp(first_visible_column_ + step, 0, line_length);
    }
    UpdateScrollRanges();
    Redraw();
}

void CUGMultiEdit::OnVScroll(UINT code, UINT position, CScrollBar*) {
    const int last = std::max(0, editing_.model().line_count() - 1);
    const int page = visible_line_count(View());
    const int step = code == SB_LINEUP ? -1 : code == SB_LINEDOWN ? 1 : code == SB_PAGEUP ? -page : page;
    if (code == SB_THUMBTRACK || code == SB_THUMBPOSITION) {
        first_visible_line_ = std::min(static_cast<int>(position), last);
    } else if (code <= SB_PAGEDOWN) {
        first_visible_line_ = std::clamp(first_visible_line_ + step, 0, last);
    }
    UpdateScrollRanges();
    Redraw();
}

// In a window without a scroll bar a range would make one appear.
void CUGMultiEdit::UpdateScrollRanges() {
    if (m_hWnd == nullptr) {
        return;
    }
    if ((GetStyle() & WS_HSCROLL) != 0) {
        SetScrollRange(SB_HORZ, 0, static_cast<int>(TextEditing::max_length), FALSE);
        SetScrollPos(SB_HORZ, first_visible_column_);
    }
    if ((GetStyle() & WS_VSCROLL) != 0) {
        SetScrollRange(SB_VERT, 0, std::max(1, editing_.model().line_count()), FALSE);
        SetScrollPos(SB_VERT, first_visible_line_);
    }
}

TextView CUGMultiEdit::View() const {
    RECT client{};
    GetClientRect(&client);
    ::InflateRect(&client, -text_margin, 0);
    TextView view;
    view.client = layout_rect(client);
    view.line_height = line_height_;
    view.alignment = alignment_;
    view.first_visible_column = first_visible_column_;
    view.first_visible_line = first_visible_line_;
    return view;
}

MeasureText CUGMultiEdit::Measure() {
    return [this](std::wstring_view text) { return widths_.positions(FontContext(m_hWnd, font_).get(), text); };
}

void CUGMultiEdit::ScrollToCaret() {
    if (m_hWnd == nullptr) {
        return;
    }
    const ScrollPlace place = scroll_to_caret(editing_.model(), View(), Measure(), editing_.caret().gap);
    first_visible_column_ = place.column;
    first_visible_line_ = place.line;
    UpdateScrollRanges();
}

std::vector<VisibleText> CUGMultiEdit::VisibleRows() const {
    std::vector<VisibleText> rows;
    if (m_hWnd != nullptr) {
        const TextView view = View();
        for (int row = 0; row < visible_line_count(view); ++row) {
            rows.push_back(visible_text(editing_.model(), rows_of_view(view, row, 1), editing_.selection()));
        }
    }
    return rows;
}

// Paints only the rows that changed, because painting a character costs more than everything that is computed for it.
void CUGMultiEdit::RedrawChangedRows(const std::vector<VisibleText>& former) {
    const std::vector<VisibleText> rows = VisibleRows();
    for (size_t row = 0; row < rows.size(); ++row) {
        if (row >= former.size() || !(rows[row] == former[row])) {
            const LayoutRect place = rows_of_view(View(), static_cast<int>(row), 1).client;
            const RECT changed{0, place.top + 1, place.right + text_margin, place.bottom + 1};
            InvalidateRect(&changed, FALSE);
        }
    }
    UpdateCaret();
}

void CUGMultiEdit::Redraw() {
    if (m_hWnd != nullptr) {
        Invalidate(FALSE);
        UpdateCaret();
    }
}

void CUGMultiEdit::UpdateCaret() {
    if (has_caret_) {
        const LayoutPoint point = caret_point(editing_.model(), View(), Measure(), editing_.caret().gap);
        SetCaretPos(CPoint(point.x, point.y));
    }
}
