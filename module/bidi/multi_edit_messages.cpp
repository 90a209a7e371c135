// The editor's message map, and the text messages of an edit control.
#include <algorithm>

#include "bidi/multi_edit.h"

using namespace corvanes;

BEGIN_MESSAGE_MAP(CUGMultiEdit, CEdit)
    ON_WM_CREATE()
    ON_WM_KEYDOWN()
    ON_WM_SYSKEYDOWN()
    ON_WM_CHAR()
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_LBUTTONDBLCLK()
    ON_WM_TIMER()
    ON_WM_CAPTURECHANGED()
    ON_WM_ERASEBKGND()
    ON_WM_PAINT()
    ON_WM_GETDLGCODE()
    ON_WM_HSCROLL()
    ON_WM_VSCROLL()
    ON_WM_SETCURSOR()
    ON_WM_SHOWWINDOW()
    ON_WM_SIZE()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_CONTEXTMENU()
    ON_WM_INPUTLANGCHANGEREQUEST()
    ON_MESSAGE(WM_INPUTLANGCHANGE, &ThisClass::OnInputLanguage)
    ON_MESSAGE(activate_layout_message, &ThisClass::OnActivateLayout)
    ON_MESSAGE(WM_SETTEXT, &ThisClass::OnSetText)
    ON_MESSAGE(WM_GETTEXT, &ThisClass::OnGetText)
    ON_MESSAGE(WM_GETTEXTLENGTH, &ThisClass::OnGetTextLength)
    ON_MESSAGE(WM_SETFONT, &ThisClass::OnSetFontMessage)
    ON_MESSAGE(WM_PRINTCLIENT, &ThisClass::OnPrintClient)
    ON_MESSAGE(WM_CUT, &ThisClass::OnCut)
    ON_MESSAGE(WM_COPY, &ThisClass::OnCopy)
    ON_MESSAGE(WM_PASTE, &ThisClass::OnPaste)
    ON_MESSAGE(WM_CLEAR, &ThisClass::OnClear)
    ON_MESSAGE(WM_UNDO, &ThisClass::OnUndo)
    ON_MESSAGE(EM_UNDO, &ThisClass::OnUndo)
    ON_MESSAGE(EM_CANUNDO, &ThisClass::OnCanUndo)
    ON_MESSAGE(EM_GETSEL, &ThisClass::OnGetSel)
    ON_MESSAGE(EM_SETSEL, &ThisClass::OnSetSel)
    ON_MESSAGE(EM_REPLACESEL, &ThisClass::OnReplaceSel)
    ON_MESSAGE(EM_GETMODIFY, &ThisClass::OnGetModify)
    ON_MESSAGE(EM_SETMODIFY, &ThisClass::OnSetModify)
    ON_MESSAGE(EM_GETLINECOUNT, &ThisClass::OnGetLineCount)
    ON_MESSAGE(EM_LINEFROMCHAR, &ThisClass::OnLineFromChar)
    ON_MESSAGE(EM_LINEINDEX, &ThisClass::OnLineIndex)
    ON_MESSAGE(EM_LINELENGTH, &ThisClass::OnLineLength)
    ON_MESSAGE(EM_GETLINE, &ThisClass::OnGetLine)
    ON_MESSAGE(EM_GETLIMITTEXT, &ThisClass::OnGetLimitText)
    ON_MESSAGE(EM_CHARFROMPOS, &ThisClass::OnCharFromPos)
    ON_MESSAGE(EM_POSFROMCHAR, &ThisClass::OnPosFromChar)
END_MESSAGE_MAP()

LRESULT CUGMultiEdit::OnSetText(WPARAM, LPARAM text) {
    ResetText(reinterpret_cast<const wchar_t*>(text), 1);
    return TRUE;
}

LRESULT CUGMultiEdit::OnGetText(WPARAM size, LPARAM buffer) {
    if (size == 0) {
        return 0;
    }
    const std::wstring text = TypedText();
    const size_t copied = std::min(text.size(), static_cast<size_t>(size) - 1);
    auto* target = reinterpret_cast<wchar_t*>(buffer);
    std::copy_n(text.begin(), copied, target);
    target[copied] = L'\0';
    return static_cast<LRESULT>(copied);
}

LRESULT CUGMultiEdit::OnGetTextLength(WPARAM, LPARAM) {
    return static_cast<LRESULT>(TypedText().size());
}

LRESULT CUGMultiEdit::OnGetSel(WPARAM start, LPARAM end) {
    const TextRange range = editing_.selection();
    if (start != 0) {
        *reinterpret_cast<DWORD*>(start) = static_cast<DWORD>(range.start);
    }
    if (end != 0) {
        *reinterpret_cast<DWORD*>(end) = static_cast<DWORD>(range.end);
    }
    return range.end <= 0xFFFF ? MAKELONG(range.start, range.end) : -1;
}

// A start of -1 removes the selection; an end of -1 stands for the end of the text.
LRESULT CUGMultiEdit::OnSetSel(WPARAM start, LPARAM end) {
    const auto first = static_cast<int>(start);
    const auto last = static_cast<int>(end);
    Edit([first, last](TextEditing& editing) {
        const size_t length = editing.model().logical().size();
        const size_t caret = editing.caret().index;
        const size_t to = last < 0 ? length : static_cast<size_t>(last);
        first < 0 ? editing.select(caret, caret) : editing.select(static_cast<size_t>(first), to);
    });
    return 0;
}

LRESULT CUGMultiEdit::OnGetModify(WPARAM, LPARAM) {
    return editing_.modified() ? TRUE : FALSE;
}

LRESULT CUGMultiEdit::OnSetModify(WPARAM modified, LPARAM) {
    editing_.set_modified(modified != 0);
    return 0;
}

// An empty text has one line for the edit control's users.
LRESULT CUGMultiEdit::OnGetLineCount(WPARAM, LPARAM) {
    return std::max(1, editing_.model().line_count());
}

// An index or a line of -1 stands for that of the caret.
LRESULT CUGMultiEdit::OnLineFromChar(WPARAM index, LPARAM) {
    const auto given = static_cast<int>(index);
    return given < 0 ? editing_.caret_line() : editing_.model().logical_line_at(static_cast<size_t>(given));
}

LRESULT CUGMultiEdit::OnLineIndex(WPARAM line, LPARAM) {
    const int given = static_cast<int>(line) < 0 ? editing_.caret_line() : static_cast<int>(line);
    const bool there = given < std::max(1, editing_.model().line_count());
    return there ? static_cast<LRESULT>(editing_.model().logical_line(given).start) : -1;
}

LRESULT CUGMultiEdit::OnLineLength(WPARAM index, LPARAM) {
    const auto line = static_cast<int>(OnLineFromChar(index, 0));
    return static_cast<LRESULT>(editing_.model().logical_line(line).length());
}

// The buffer's first word holds its size; the line is not terminated.
LRESULT CUGMultiEdit::OnGetLine(WPARAM line, LPARAM buffer) {
    const TextRange range = editing_.model().logical_line(static_cast<int>(line));
    auto* target = reinterpret_cast<wchar_t*>(buffer);
    const size_t copied = std::min<size_t>(range.length(), *reinterpret_cast<WORD*>(buffer));
    std::copy_n(editing_.model().logical().begin() + static_cast<std::ptrdiff_t>(range.start), copied, target);
    return static_cast<LRESULT>(copied);
}

LRESULT CUGMultiEdit::OnGetLimitText(WPARAM, LPARAM) {
    return TextEditing::max_length;
}

LRESULT CUGMultiEdit::OnCharFromPos(WPARAM, LPARAM point) {
    const CPoint place(point);
    const TextHit hit =
        CharFromPoint(editing_.model(), View(), Measure(), {static_cast<int>(place.x), static_cast<int>(place.y)});
    return MAKELONG(hit.column, hit.line);
}

LRESULT CUGMultiEdit::OnPosFromChar(WPARAM index, LPARAM) {
    const size_t gap = editing_.caret().gap;
    const int line = editing_.model().visual_line_at(gap);
    const int x = PosFromChar(editing_.model(), View(), Measure(), line, static_cast<int>(index));
    return MAKELONG(x, caret_point(editing_.model(), View(), Measure(), gap).y);
}
