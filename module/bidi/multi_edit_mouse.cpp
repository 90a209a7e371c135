// The editor's mouse and focus.
#include <algorithm>
#include <optional>

#include "bidi/multi_edit.h"

using namespace corvanes;

namespace {

constexpr UINT_PTR drag_timer = 0x1D0C;
constexpr UINT drag_interval = 50;  // milliseconds

/// The side of the window on which a point outside of it lies; above and below count only when there are other lines.
std::optional<Motion> direction_outside(const RECT& client, const POINT& point, bool several_lines) {
    if (several_lines && (point.y < client.top || point.y >= client.bottom)) {
        return point.y < client.top ? Motion::up : Motion::down;
    }
    if (point.x < client.left || point.x >= client.right) {
        return point.x < client.left ? Motion::left : Motion::right;
    }
    return std::nullopt;
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
    PlaceCaret(point, (keys & MK_SHIFT) != 0);
}

void CUGMultiEdit::CaretTo(CPoint point) {
    PlaceCaret(point, false);
}

void CUGMultiEdit::PlaceCaret(CPoint point, bool extend) {
    const size_t gap = GapAt(point);
    Edit([gap, extend](TextEditing& editing) { editing.place_at_gap(gap, extend); });
}

void CUGMultiEdit::OnMouseMove(UINT keys, CPoint point) {
    if (::GetCapture() == m_hWnd && (keys & MK_LBUTTON) != 0) {
        DragTo(point);
    }
}

// While the pointer is outside, what is scrolled out on that side comes in step by step, whether or not it moves.
void CUGMultiEdit::DragTo(CPoint point) {
    RECT client{};
    GetClientRect(&client);
    const std::optional<Motion> direction = direction_outside(client, point, editing_.model().line_count() > 1);
    const size_t gap = GapAt(point);
    Edit([gap, &direction](TextEditing& editing) {
        direction ? editing.drag_beyond(gap, *direction) : editing.place_at_gap(gap, true);
    });
    if (direction) {
        SetTimer(drag_timer, drag_interval);
    } else {
        KillTimer(drag_timer);
    }
}

void CUGMultiEdit::OnTimer(UINT_PTR timer) {
    if (timer != drag_timer) {
        CEdit::OnTimer(timer);
    } else if (::GetCapture() == m_hWnd) {
        CPoint point;
        ::GetCursorPos(&point);
        ScreenToClient(&point);
        DragTo(point);
    } else {
        KillTimer(drag_timer);
    }
}

void CUGMultiEdit::OnLButtonUp(UINT, CPoint) {
    if (::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
    }
}

void CUGMultiEdit::OnCaptureChanged(CWnd*) {
    KillTimer(drag_timer);
}

void CUGMultiEdit::OnLButtonDblClk(UINT, CPoint point) {
    const TextModel& model = editing_.model();
    const size_t gap = GapAt(point);
    const TextRange line = model.visual_line(model.visual_line_at(gap));
    if (line.empty()) {
        return;
    }
    // In a right-to-left line gaps are counted from the right edge, so the character under the point lies before the
    // gap.
    const size_t before = gap - (model.right_to_left() && gap > line.start ? 1 : 0);
    const size_t index = model.map()[std::min(before, line.end - 1)];
    Edit([index](TextEditing& editing) { editing.select_word(index); });
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
    NotifyParent(EN_SETFOCUS);
}

void CUGMultiEdit::OnKillFocus(CWnd*) {
    has_caret_ = false;
    ::DestroyCaret();
    if (::GetCapture() == m_hWnd) {
        ::ReleaseCapture();
    }
    NotifyParent(EN_KILLFOCUS);
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

// The editor takes all keys, Tab, Enter and Escape among them.
UINT CUGMultiEdit::OnGetDlgCode() {
    return DLGC_WANTALLKEYS | DLGC_WANTCHARS | DLGC_WANTARROWS | DLGC_HASSETSEL;
}
