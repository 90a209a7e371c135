// The editor's mouse, focus and context menu.
#include "bidi/clipboard_text.h"
#include "bidi/multi_edit.h"

using namespace corvanes;

namespace {

enum MenuCommand : UINT {
    menu_undo = 1,
    menu_cut,
    menu_copy,
    menu_paste,
    menu_delete,
    menu_select_all,
    menu_right_to_left,
};

UINT enabled_if(bool enabled) {
    return MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED);
}

}  // namespace

size_t CUGMultiEdit::GapAt(CPoint point) {
    const TextHit hit =
        CharFromPoint(editing_.model(), View(), Measure(), {static_cast<int>(point.x), static_cast<int>(point.y)});
    return editing_.model().visual_line(hit.line).start + static_cast<size_t>(hit.column);
}

void CUGMultiEdit::OnLButtonDown(UINT keys, CPoint point) {
    if (::GetFocus() != m_hWnd) {
        SetFocus();
    }
    SetCapture();
    const size_t gap = GapAt(point);
    const bool extend = (keys & MK_SHIFT) != 0;
    Edit([gap, extend](TextEditing& editing) { editing.place_at_gap(gap, extend); });
}

void CUGMultiEdit::OnMouseMove(UINT keys, CPoint point) {
    if (::GetCapture() == m_hWnd && (keys & MK_LBUTTON) != 0) {
        const size_t gap = GapAt(point);
        Edit([gap](TextEditing& editing) { editing.place_at_gap(gap, true); });
    }
}

void CUGMultiEdit::OnLButtonUp(UINT, CPoint) {
    if (::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
    }
}

void CUGMultiEdit::OnLButtonDblClk(UINT, CPoint point) {
    const size_t gap = GapAt(point);
    Edit([gap](TextEditing& editing) {
        editing.place_at_gap(gap, false);
        editing.select_word(editing.caret().index);
    });
}

BOOL CUGMultiEdit::OnSetCursor(CWnd* window, UINT hit, UINT message) {
    if (hit != HTCLIENT) {
        return CEdit::OnSetCursor(window, hit, message);
    }
    ::SetCursor(::LoadCursorW(nullptr, IDC_IBEAM));
    return TRUE;
}

void CUGMultiEdit::OnSetFocus(CWnd*) {
    CreateSolidCaret(::GetSystemMetrics(SM_CXBORDER), line_height_);
    has_caret_ = true;
    UpdateCaret();
    ShowCaret();
}

void CUGMultiEdit::OnKillFocus(CWnd*) {
    has_caret_ = false;
    ::DestroyCaret();
    if (::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
    }
}

void CUGMultiEdit::OnShowWindow(BOOL show, UINT status) {
    CEdit::OnShowWindow(show, status);
    if (show) {
        ScrollToCaret();
        Redraw();
    }
}

void CUGMultiEdit::OnSize(UINT, int, int) {
    ScrollToCaret();
    Redraw();
}

// The keys are the editor's, Tab, Enter and Escape too.
UINT CUGMultiEdit::OnGetDlgCode() {
    return DLGC_WANTALLKEYS | DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_HASSETSEL;
}

void CUGMultiEdit::OnContextMenu(CWnd*, CPoint point) {
    const bool selected = !editing_.selection().empty();
    const bool right_to_left = editing_.model().right_to_left();
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(enabled_if(editing_.modified()), menu_undo, L"&Undo");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(enabled_if(selected), menu_cut, L"Cu&t");
    menu.AppendMenu(enabled_if(selected), menu_copy, L"&Copy");
    menu.AppendMenu(enabled_if(clipboard_has_text()), menu_paste, L"&Paste");
    menu.AppendMenu(enabled_if(selected), menu_delete, L"&Delete");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(enabled_if(!TypedText().empty()), menu_select_all, L"Select &All");
    menu.AppendMenu(MF_SEPARATOR);
    menu.AppendMenu(MF_STRING | (right_to_left ? MF_CHECKED : 0U), menu_right_to_left, L"&Right to left Reading order");
    if (point.x == -1 && point.y == -1) {
        point = GetCaretPos();
        ClientToScreen(&point);
    }
    switch (menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RIGHTBUTTON | TPM_RETURNCMD, point.x, point.y, this)) {
        case menu_undo:
            SendMessage(WM_UNDO);
            break;
        case menu_cut:
            SendMessage(WM_CUT);
            break;
        case menu_copy:
            SendMessage(WM_COPY);
            break;
        case menu_paste:
            SendMessage(WM_PASTE);
            break;
        case menu_delete:
            SendMessage(WM_CLEAR);
            break;
        case menu_select_all:
            SelectAll();
            break;
        case menu_right_to_left:
            SetDirection(right_to_left ? ParagraphDirection::left_to_right : ParagraphDirection::right_to_left);
            break;
        default:
            break;
    }
}
