// The grid's current cell, selection, editing, redrawing and scrolling.
#include <algorithm>
#include <cstdlib>

#include "grid/cell_movement.h"
#include "grid/grid_control.h"

using namespace corvanes;

void CUGCtrl::KeepCurrentCellInside() {
    const auto inside = [](int place, int count) { return count == 0 ? -1 : std::clamp(place, 0, count - 1); };
    const int column = state_.columns.nearest_shown(inside(state_.current_column, GetColumnCount()));
    const int row = inside(state_.current_row, GetRowCount());
    if (column != state_.current_column || row != state_.current_row) {
        MakeCurrent(column, row);
    }
}

void CUGCtrl::MakeCurrent(int column, int row) {
    const int old_column = state_.current_column;
    const int old_row = state_.current_row;
    RedrawCell(old_column, old_row);
    state_.current_column = column;
    state_.current_row = row;
    state_.previous_row = old_row;
    RedrawCell(column, row);
    if (row != old_row) {
        OnGridRowChange(old_row, row);
    }
    OnGridCellChange(old_column, column, old_row, row);
}

int CUGCtrl::GotoCell(int column, int row) {
    if (!state_.columns.shows(column) || row < 0 || row >= GetRowCount()) {
        return 1;
    }
    if (column != state_.current_column || row != state_.current_row) {
        if (OnGridCanMove(state_.current_column, state_.current_row, column, row) == 0) {
            return 2;
        }
        state_.selection.set_anchor(column, row);
        MakeCurrent(column, row);
    }
    EnsureVisible(column, row);
    return 0;
}

int CUGCtrl::MoveCurrentRow(int direction) {
    UpdateLayout();
    const bool up = direction == page_up;
    const int top_of_page =
        up ? state_.rows.top_showing(state_.current_row, 0, cells_.height()) : std::max(0, state_.current_row);
    const int page = state_.rows.fitting(top_of_page, cells_.height());
    const auto row = row_after(direction, state_.current_row, GetRowCount(), page);
    return row.has_value() ? MoveCurrentCell(state_.current_column, *row) : 1;
}

int CUGCtrl::MoveCurrentColumn(int steps) {
    return MoveCurrentCell(ColumnAfter(steps), state_.current_row);
}

int CUGCtrl::ColumnAfter(int steps) const {
    const auto shown = [this](int column) { return state_.columns.shows(column); };
    return column_after(steps, state_.current_column, GetColumnCount(), shown);
}

// Here Shift stands for the way back, so it must not stretch a selection.
void CUGCtrl::GoOnFromEdit(UINT key) {
    const int step = ::GetKeyState(VK_SHIFT) < 0 ? -1 : 1;
    if (key == VK_TAB) {
        GotoCell(ColumnAfter(step), state_.current_row);
    } else if (key == VK_RETURN) {
        GotoCell(state_.current_column, state_.current_row + step);
    } else if (key == VK_UP || key == VK_DOWN) {
        GotoCell(state_.current_column, state_.current_row + (key == VK_UP ? -1 : 1));
    }
}

int CUGCtrl::MoveCurrentCell(int column, int row) {
    if (!state_.columns.shows(column) || row < 0 || row >= GetRowCount()) {
        return 1;
    }
    if (column == state_.current_column && row == state_.current_row) {
        return 0;
    }
    const bool shift = ::GetKeyState(VK_SHIFT) < 0;
    if (!shift && ::GetKeyState(VK_CONTROL) >= 0) {
        ClearSelection();
    }
    if (OnGridCanMove(state_.current_column, state_.current_row, column, row) == 0) {
        return 2;
    }
    if (shift) {
        state_.selection.stretch_to(column, row);
        RedrawAll();
    } else {
        state_.selection.set_anchor(column, row);
    }
    MakeCurrent(column, row);
    EnsureVisible(column, row);
    return 0;
}

// A plain click makes the cell current; with Shift it stretches the selection to it, with Ctrl it adds the cell, or
// takes it out.
void CUGCtrl::ClickCell(int column, int row, bool stretch, bool add) {
    if (!stretch && !add) {
        ClearSelection();
    }
    const bool moves = column != state_.current_column || row != state_.current_row;
    if (moves && OnGridCanMove(state_.current_column, state_.current_row, column, row) == 0) {
        return;
    }
    if (stretch) {
        state_.selection.stretch_to(column, row);
        RedrawAll();
    } else if (add && IsSelected(column, row)) {
        state_.selection.remove(column, row);
        RedrawCell(column, row);
    } else if (add) {
        SelectCell(column, row);
    } else {
        state_.selection.set_anchor(column, row);
    }
    if (moves) {
        MakeCurrent(column, row);
    }
    EnsureVisible(column, row);
}

int CUGCtrl::SelectCell(int column, int row) {
    if (column < 0 || row < 0 || !Addresses(column, row)) {
        return 1;
    }
    state_.selection.add(column, row);
    RedrawCell(column, row);
    return 0;
}

int CUGCtrl::ClearSelection() {
    if (!state_.selection.empty()) {
        state_.selection.clear();
        RedrawAll();
    }
    return 0;
}

int CUGCtrl::StartEdit(int column, int row, UINT key) {
    if (column < 0 || row < 0 || !Addresses(column, row) || !FinishEdit()) {
        return 1;
    }
    if (const int refused = GotoCell(column, row); refused != 0) {
        return refused;
    }
    ClearSelection();
    state_.selection.set_anchor(column, row);
    UpdateLayout();
    CWnd* window = &default_editor_;
    if (OnGridEditStart(column, row, &window) == 0 || window == nullptr) {
        return 1;
    }
    return edit_.start(column, row, *window, key) ? 0 : 1;
}

bool CUGCtrl::FinishEdit() {
    // While an attempt to end the edit is being decided, nobody else may take it as ended.
    return !edit_.active() || edit_.end_edit(EditEnd::commit, 0) == EditOutcome::ended;
}

bool CUGCtrl::TakeFocus(CWnd& part) {
    // An editor that loses the focus asks by itself to end. An owner that refuses has said so and is not asked again.
    const bool asks_itself = edit_.is_editor(::GetFocus());
    part.SetFocus();
    return asks_itself ? !edit_.active() : FinishEdit();
}

void CUGCtrl::OpenDropList(int column, int row) {
    CUGCell cell;
    if (!FinishEdit() || GetCell(column, row, &cell) != 0 || !drop_list_.Prepare(*this, cell.GetLabelText())) {
        return;
    }
    if (GotoCell(column, row) == 0 && edit_.start(column, row, drop_list_, 0)) {
        drop_list_.Unfold();
    }
}

bool CUGCtrl::OfferCellText(int column, int row, LPCWSTR text) {
    return edit_.offer(column, row, text);
}

int CUGCtrl::RedrawCell(int column, int row) {
    if (!Addresses(column, row)) {
        return 1;
    }
    if (state_.display_flag == 0) {
        return 0;
    }
    if (column >= 0 && row >= 0) {
        cells_.RedrawCell(column, row);
    }
    if (column < 0) {
        side_heading_.Redraw();
    }
    if (row < 0) {
        top_heading_.Redraw();
    }
    return 0;
}

int CUGCtrl::RedrawRow(int row) {
    if (row < -1 || row >= GetRowCount()) {
        return 1;
    }
    if (row < 0) {
        return RedrawCell(0, -1);
    }
    if (state_.display_flag != 0) {
        cells_.RedrawRow(row);
        side_heading_.RedrawPart(side_heading_.CellRectangle(row));
    }
    return 0;
}

void CUGCtrl::RedrawAll() {
    if (state_.display_flag != 0) {
        cells_.Redraw();
        top_heading_.Redraw();
        side_heading_.Redraw();
    }
}

int CUGCtrl::SetDisplayFlag(int flag) {
    const bool woken = state_.display_flag == 0 && flag != 0;
    state_.display_flag = flag;
    if (woken) {
        RedrawAll();
    }
    return 0;
}

// A drag of the thumb sends its messages without ever leaving the queue empty, so scrolling paints at once.
void CUGCtrl::SetTopRow(int row) {
    UpdateLayout();
    row = std::clamp(row, 0, state_.rows.last_top(cells_.height()));
    if (row == state_.top_row) {
        return;
    }
    state_.top_row = row;
    ::SetScrollPos(m_hWnd, SB_VERT, row, TRUE);
    cells_.Redraw();
    side_heading_.Redraw();
    cells_.UpdateWindow();
    side_heading_.UpdateWindow();
}

void CUGCtrl::SetScrollX(int x) {
    UpdateLayout();
    x = std::clamp(x, 0, std::max(0, state_.columns.total_width() - cells_.width()));
    if (x == state_.scroll_x) {
        return;
    }
    state_.scroll_x = x;
    ::SetScrollPos(m_hWnd, SB_HORZ, x, TRUE);
    cells_.Redraw();
    top_heading_.Redraw();
    cells_.UpdateWindow();
    top_heading_.UpdateWindow();
}

void CUGCtrl::ScrollByWheel(int turn) {
    UINT lines = 3;
    ::SystemParametersInfoW(SPI_GETWHEELSCROLLLINES, 0, &lines, 0);
    if (lines == WHEEL_PAGESCROLL) {
        lines = static_cast<UINT>(state_.rows.fitting(state_.top_row, cells_.height()));
    }
    const int rows = wheel_rows_.add(turn, static_cast<int>(lines));
    if (rows != 0 && FinishEdit()) {
        SetTopRow(state_.top_row - rows);
    }
}

void CUGCtrl::ScrollSidewaysByWheel(int turn) {
    constexpr int lines_a_notch = 3;
    const int lines = wheel_columns_.add(turn, lines_a_notch);
    if (lines != 0 && FinishEdit()) {
        SetScrollX(state_.scroll_x + lines * horizontal_line);
    }
}

void CUGCtrl::KeepVerticalBar() {
    state_.keeps_vertical_bar = true;
    ::ShowScrollBar(m_hWnd, SB_VERT, TRUE);
    LayoutChanged();
    UpdateLayout();
}

int CUGCtrl::EnsureVisible(int column, int row) {
    UpdateLayout();
    if (row >= 0 && row < GetRowCount()) {
        SetTopRow(state_.rows.top_showing(row, state_.top_row, cells_.height()));
    }
    if (state_.columns.contains(column)) {
        const int left = state_.columns.left(column);
        const int right = state_.columns.left(column + 1);
        const int scroll = std::max(state_.scroll_x, right - cells_.width());
        SetScrollX(std::min(scroll, left));
    }
    return 0;
}
