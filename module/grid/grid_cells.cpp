// The grid's columns and rows.
#include <limits>

#include "grid/grid_control.h"

using namespace corvanes;

int CUGCtrl::SetColumnCount(int count, BOOL redraw) {
    if (count < 0 || count > ColumnLayout::most_columns || source_->SetColumnCount(count) != 0) {
        return 1;
    }
    edit_.abandon();
    state_.columns.set_count(count);
    state_.selection.clip(count, GetRowCount());
    LayoutChanged();
    if (redraw) {
        RedrawAll();
    }
    KeepCurrentCellInside();
    return 0;
}

int CUGCtrl::SetRowCount(int count, BOOL redraw) {
    if (count < 0) {
        return 1;
    }
    if (count < GetRowCount()) {
        edit_.abandon();
    }
    return ChangeRowCount(count, redraw);
}

int CUGCtrl::ChangeRowCount(int count, BOOL redraw) {
    if (const int refused = source_->SetRowCount(count); refused != 0) {
        return refused;
    }
    state_.rows.set_count(count);
    if (!state_.selection.empty()) {
        state_.selection.clip(GetColumnCount(), count);
    }
    LayoutChanged();
    if (redraw) {
        RedrawAll();
    }
    KeepCurrentCellInside();
    return 0;
}

int CUGCtrl::SetColumnWidth(int column, int width) {
    if (!state_.columns.contains(column)) {
        // Heading columns count to the left from -1.
        if (column < 0 && state_.side.set_width(-1 - column, width)) {
            LayoutChanged();
            RedrawAll();
        }
        return 1;
    }
    if (state_.columns.width(column) != width || state_.columns.hidden(column)) {
        state_.columns.set_width(column, width);
        LayoutChanged();
        RedrawAll();
        KeepCurrentCellInside();
    }
    return 0;
}

int CUGCtrl::ShowColumn(int column, BOOL show) {
    const bool last_one = state_.columns.first_shown() == column && state_.columns.last_shown() == column;
    if (!state_.columns.contains(column) || (show == FALSE && last_one)) {
        return 1;
    }
    state_.columns.hide(column, show == FALSE);
    LayoutChanged();
    RedrawAll();
    KeepCurrentCellInside();
    return 0;
}

int CUGCtrl::AlignColumnRight(int column, BOOL right) {
    if (!state_.columns.contains(column)) {
        return 1;
    }
    state_.columns.align_right(column, right != FALSE);
    RedrawAll();
    return 0;
}

int CUGCtrl::GetColumnWidth(int column) const {
    return state_.columns.contains(column) ? state_.columns.width(column) : 1;
}

int CUGCtrl::SetDefaultRowHeight(int height) {
    if (!state_.rows.set_default_height(height)) {
        return 1;
    }
    LayoutChanged();
    RedrawAll();
    return 0;
}

int CUGCtrl::SetRowHeight(int row, int height) {
    if (!state_.rows.set_height(row, height)) {
        return 1;
    }
    LayoutChanged();
    RedrawAll();
    return 0;
}

int CUGCtrl::GetRowHeight(int row) const {
    return row >= 0 && row < GetRowCount() ? state_.rows.height(row) : 1;
}

int CUGCtrl::SetTopHeadingHeight(int height) {
    if (height < 0 || height > RowLayout::tallest_row) {
        return 1;
    }
    state_.heading_height = height;
    LayoutChanged();
    return 0;
}

int CUGCtrl::SetSideHeadingWidth(int width) {
    if (!state_.side.set_total_width(width)) {
        return 1;
    }
    LayoutChanged();
    UpdateLayout();
    RedrawAll();
    return 0;
}

int CUGCtrl::InsertRow(int row) {
    if (row < 0 || row > GetRowCount() || GetRowCount() == std::numeric_limits<int>::max()) {
        return 1;
    }
    if (const int refused = source_->InsertRow(row); refused != 0) {
        return refused;
    }
    edit_.abandon();
    state_.rows.insert(row);
    state_.selection.insert_row(row);
    const int current = state_.current_row;
    const int refused = ChangeRowCount(GetRowCount() + 1, TRUE);
    if (row <= current) {
        MakeCurrent(state_.current_column, current + 1);
    }
    return refused;
}

int CUGCtrl::AppendRow() {
    if (GetRowCount() == std::numeric_limits<int>::max()) {
        return 1;
    }
    if (const int refused = source_->AppendRow(); refused != 0) {
        return refused;
    }
    return ChangeRowCount(GetRowCount() + 1, TRUE);
}

int CUGCtrl::DeleteRow(int row) {
    if (row < 0 || row >= GetRowCount()) {
        return 1;
    }
    if (const int refused = source_->DeleteRow(row); refused != 0) {
        return refused;
    }
    edit_.abandon();
    state_.rows.remove(row);
    state_.selection.remove_row(row);
    const int current = state_.current_row;
    const int refused = ChangeRowCount(GetRowCount() - 1, TRUE);
    if (row < current && current == state_.current_row) {
        MakeCurrent(state_.current_column, current - 1);
    } else if (row == current) {
        state_.selection.set_anchor(state_.current_column, state_.current_row);
    }
    return refused;
}

int CUGCtrl::SortBy(int column, int flags) {
    if (!state_.columns.contains(column) || (flags & (sort_ascending | sort_descending)) == 0) {
        return 1;
    }
    const auto compare = [this, flags](CUGCell* first, CUGCell* second) {
        return OnGridSortCompare(first, second, flags);
    };
    const auto order = OnGridSortOrder(flags);
    int row = state_.current_row;
    int* const followed = row >= 0 ? &row : nullptr;
    if (const int refused =
            order ? source_->SortByKeys(column, *order, followed) : source_->SortBy(column, compare, followed);
        refused != 0) {
        return refused;
    }
    edit_.abandon();
    ClearSelection();
    RedrawAll();
    if (row != state_.current_row) {
        MakeCurrent(state_.current_column, row);
    }
    state_.selection.set_anchor(state_.current_column, row);
    return 0;
}
