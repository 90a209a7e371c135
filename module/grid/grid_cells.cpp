// The grid's columns, rows, cells and cell types.
#include <algorithm>
#include <cstddef>
#include <limits>

#include "grid/grid_control.h"

using namespace corvanes;

namespace {

// Cell type indices are kept in 16 bits.
constexpr std::size_t most_cell_types = std::numeric_limits<std::uint16_t>::max();

}  // namespace

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
    if (state_.columns.width(column) != width) {
        state_.columns.set_width(column, width);
        LayoutChanged();
        RedrawAll();
        KeepCurrentCellInside();
    }
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

bool CUGCtrl::Addresses(int column, int row) const {
    return column >= -1 && column < GetColumnCount() && row >= -1 && row < GetRowCount();
}

int CUGCtrl::GetCell(int column, int row, CUGCell* cell) {
    return source_->GetCell(column, row, cell);
}

int CUGCtrl::SetCell(int column, int row, const CUGCell* cell) {
    return source_->SetCell(column, row, cell);
}

int CUGCtrl::SetCellText(int column, int row, LPCWSTR text) {
    return source_->SetCellText(column, row, text);
}

LPCWSTR CUGCtrl::GetCellText(int column, int row) {
    return source_->GetCellText(column, row);
}

int CUGCtrl::GetCellText(int column, int row, CString& text) {
    if (!Addresses(column, row)) {
        return 1;
    }
    text = GetCellText(column, row);
    return 0;
}

template <class Change>
int CUGCtrl::ChangeCell(int column, int row, Change change) {
    CUGCell cell;
    if (source_->GetCell(column, row, &cell) != 0) {
        return 1;
    }
    change(cell);
    return source_->SetCell(column, row, &cell);
}

int CUGCtrl::SetCellLabel(int column, int row, LPCWSTR text) {
    return ChangeCell(column, row, [text](CUGCell& cell) { cell.SetLabelText(text); });
}

int CUGCtrl::SetCellTypeIndex(int column, int row, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= most_cell_types) {
        return 1;
    }
    return ChangeCell(column, row, [index](CUGCell& cell) { cell.SetCellType(index); });
}

int CUGCtrl::SetCellTypeOptions(int column, int row, DWORD bits) {
    return ChangeCell(column, row, [bits](CUGCell& cell) { cell.SetCellTypeOptions(bits); });
}

int CUGCtrl::AddCellType(CUGCellType* type) {
    if (type == nullptr) {
        return -1;
    }
    const auto known = std::find(types_.begin(), types_.end(), type);
    if (known == types_.end()) {
        if (types_.size() >= most_cell_types) {
            return -1;
        }
        types_.push_back(type);
        return static_cast<int>(types_.size()) - 1;
    }
    return static_cast<int>(known - types_.begin());
}

CUGCellType& CUGCtrl::CellType(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < types_.size() ? *types_[index] : normal_type_;
}

CUGCellType& CUGCtrl::CellTypeAt(int column, int row) {
    CUGCell cell;
    GetCell(column, row, &cell);
    return CellType(cell.GetCellType());
}
