#include "grid/edit_session.h"

#include <algorithm>

#include "bidi/reordering.h"
#include "grid/cell_grid.h"
#include "grid/painting_area.h"
#include "grid/raised_flag.h"

namespace corvanes {

bool EditSession::start(int column, int row, CWnd& window, UINT key) {
    auto* editor = dynamic_cast<CellEditor*>(&window);
    const RECT cell = grid_.GetGrid().CellRectangle(column, row);
    if (editor == nullptr || window.m_hWnd == nullptr || ::IsRectEmpty(&cell) != 0) {
        return false;
    }
    editor_ = editor;
    window_ = &window;
    column_ = column;
    row_ = row;

    RECT place = editor->bounds(cell);
    ::MapWindowPoints(grid_.GetGrid().m_hWnd, ::GetParent(window.m_hWnd), reinterpret_cast<POINT*>(&place), 2);
    ::SendMessageW(window.m_hWnd, WM_SETFONT, reinterpret_cast<WPARAM>(grid_.GetGridFont()), FALSE);
    ::SetWindowPos(window.m_hWnd, HWND_TOP, place.left, place.top, place.right - place.left, place.bottom - place.top,
                   SWP_NOACTIVATE);
    CString text;
    grid_.GetCellText(column, row, text);
    editor->begin(*this, text, key);
    window.ShowWindow(SW_SHOW);
    window.SetFocus();
    return true;
}

EditOutcome EditSession::end_edit(EditEnd how, UINT key) {
    if (ending_ || !active()) {
        return EditOutcome::busy;
    }
    const RaisedFlag ending(ending_);
    const bool cancelled = how == EditEnd::cancel;
    CString text;
    if (cancelled) {
        grid_.GetCellText(column_, row_, text);
    } else {
        text = editor_->text();
    }
    const bool accepted = grid_.OnGridEditVerify(column_, row_, window_, text) == 1 && active() &&
                          grid_.OnGridEditFinish(column_, row_, window_, text, cancelled ? TRUE : FALSE) != 0;
    if (!active()) {
        return EditOutcome::ended;
    }
    if (!accepted) {
        grid_.RefocusEditor();
        return EditOutcome::refused;
    }
    if (!cancelled) {
        grid_.SetCellText(column_, row_, text);
    }
    close();
    grid_.RedrawCell(column_, row_);
    if (!cancelled) {
        grid_.GoOnFromEdit(key);
    }
    return EditOutcome::ended;
}

void EditSession::close() {
    CellEditor* editor = editor_;
    CWnd* window = window_;
    editor_ = nullptr;
    window_ = nullptr;
    editor->end();
    if (window->m_hWnd == nullptr) {
        return;
    }
    if (::GetFocus() == window->m_hWnd) {
        grid_.SetFocus();
    }
    window->ShowWindow(SW_HIDE);
}

void EditSession::point_at(POINT point, const RECT& clicked) {
    if (!active() || window_->m_hWnd == nullptr) {
        return;
    }
    CUGCell cell;
    grid_.GetCell(column_, row_, &cell);
    CUGCellType& type = grid_.CellType(cell.GetCellType());
    // The text may have moved: the cell was scrolled into sight, and an editor has its text at the cell's edge.
    const RECT shown = type.TextPlace(clicked, cell);
    const RECT edited = grid_.GetGrid().CellRectangle(column_, row_);
    CString text;
    grid_.GetCellText(column_, row_, text);
    if (contains_right_to_left(text.GetString())) {
        point.x += edited.right - shown.right;
    } else {
        const bool at_right = grid_.state().columns.aligned_right(column_) || type.TextAtRight(cell);
        const LONG before_text = at_right ? indent(shown, text.GetString()) : 0;
        if (point.x < shown.left + before_text) {
            return;  // the click was beside a text at the right edge, and the caret is at its end already
        }
        point.x += edited.left - shown.left - before_text;
    }
    ::MapWindowPoints(grid_.GetGrid().m_hWnd, window_->m_hWnd, &point, 1);
    editor_->point_at(point);
}

LONG EditSession::indent(const RECT& shown, std::wstring_view text) {
    CClientDC dc(&grid_);
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, grid_.GetGridFont());
    const int width = text_width(dc, text);
    ::SelectObject(dc.m_hDC, former);
    return std::max<LONG>(0, shown.right - shown.left - 2 * cell_text_margin - width);
}

bool EditSession::offer(int column, int row, LPCWSTR text) {
    const unsigned arrangement = grid_.arrangement();
    if (grid_.OnGridEditVerify(column, row, nullptr, text) != 1 || arrangement != grid_.arrangement() ||
        grid_.OnGridEditFinish(column, row, nullptr, text, FALSE) == 0 || arrangement != grid_.arrangement() ||
        grid_.SetCellText(column, row, text) != 0) {
        return false;
    }
    grid_.RedrawCell(column, row);
    return true;
}

void EditSession::abandon() {
    grid_.CellsRearranged();
    if (active()) {
        close();
    }
}

void EditSession::focus() {
    if (active() && window_->m_hWnd != nullptr) {
        window_->SetFocus();
    }
}

}  // namespace corvanes
