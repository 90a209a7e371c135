#include "common/sorting_grid.h"

#include <string_view>

#include "common/cell_comparison.h"

using namespace corvanes;

SortingGrid::SortingGrid(const std::vector<GridColumn>& columns, GridOwner* owner)
    : columns_(columns), owner_(owner), widths_(columns.size(), -1) {}

void SortingGrid::SetUpRows() {
    constexpr int leading = 3;
    SetSideHeadingWidth(0);
    SetDefaultRowHeight(GetFontHeight() + leading);
    SetDisplayFlag(1);
}

void SortingGrid::SetUpColumns(const std::vector<int>& computed_widths) {
    if (widths_[0] == -1) {
        widths_ = computed_widths;
    }
    mend_widths(widths_, computed_widths);
    const int count = static_cast<int>(columns_.size());
    SetColumnCount(count, FALSE);
    for (int column = 0; column < count; ++column) {
        const GridColumn& made = columns_[static_cast<size_t>(column)];
        SetColumnWidth(column, widths_[static_cast<size_t>(column)]);
        AlignColumnRight(column, made.number);
        SetCellText(column, heading_row, made.heading);
    }
    sort_arrow_index_ = AddCellType(&sort_arrow_);
    ShowSortArrow();
}

void SortingGrid::ShowSortArrow() {
    SetCellTypeIndex(sort_column_, heading_row, sort_arrow_index_);
    SetCellTypeOptions(sort_column_, heading_row, ascending_ ? arrow_down_ascending : arrow_up_descending);
}

void SortingGrid::SortByHeading(int column) {
    SetCellTypeIndex(sort_column_, heading_row, type_normal);
    ascending_ = column != sort_column_ || !ascending_;
    sort_column_ = column;
    SortBy(column, ascending_ ? sort_ascending : sort_descending);
    ShowSortArrow();
}

void SortingGrid::StoreColumnWidths() {
    for (int column = 0; column < GetColumnCount(); ++column) {
        const int width = GetColumnWidth(column);
        if (StoresWidth(column, width)) {
            widths_[static_cast<size_t>(column)] = width;
        }
    }
}

int SortingGrid::OnGridSortCompare(CUGCell* first, CUGCell* second, int flags) {
    return compare_empty_last(first, second, flags, sorts_by_value());
}

std::unique_ptr<KeyedOrder> SortingGrid::OnGridSortOrder(int flags) {
    return std::make_unique<EmptyLastOrder>(flags, sorts_by_value());
}

bool SortingGrid::TakesKey(const MSG& message) {
    // On a button the key may be a slip of the hand, so no command that changes a cell is among these.
    constexpr std::wstring_view harmless = L"ACFGHP";
    const bool letter = message.message == WM_KEYDOWN && message.wParam <= L'Z' &&
                        harmless.find(static_cast<wchar_t>(message.wParam)) != std::wstring_view::npos;
    return letter && ::GetKeyState(VK_CONTROL) < 0 && m_hWnd != nullptr && message.hwnd != m_hWnd &&
           ::IsChild(m_hWnd, message.hwnd) == 0 && ::IsChild(::GetParent(m_hWnd), message.hwnd) != 0 &&
           Commands().KeyDown(static_cast<UINT>(message.wParam));
}

void SortingGrid::OnGridKeyDown(UINT* key, BOOL) {
    if (*key == VK_ESCAPE && owner_ != nullptr) {
        owner_->Close();
    }
}
