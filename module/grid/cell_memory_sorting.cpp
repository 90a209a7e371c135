// How the cell store puts its rows in order.
#include <algorithm>

#include "grid/cell_memory.h"
#include "grid/raised_flag.h"
#include "grid/safe_sort.h"

using namespace corvanes;

// For a source that keeps no keys. It reads both cells anew for every comparison.
int CUGDataSource::SortByKeys(int column, const KeyedOrder& order, int* followed) {
    const auto compare = [&order](CUGCell* first, CUGCell* second) {
        return order.compare(order.read(first), order.read(second));
    };
    return SortBy(column, compare, followed);
}

bool CUGMem::read_cell(int column, int row, CUGCell& cell) const {
    const StoredCell* stored = find(column, row);
    const bool present = stored != nullptr && stored->style != CellStyles::empty;
    if (present) {
        borrow(*stored, cell);
    }
    return present;
}

template <class Item, class Compare>
void CUGMem::sort_rows(std::vector<Item>& items, Compare compare, int* followed) {
    const Handle row_of_interest = followed != nullptr ? row_at(*followed) : BlockArena::none;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        items[row].row = rows_[row];
    }
    safe_sort(items, compare);
    std::transform(items.begin(), items.end(), rows_.begin(), [](const Item& item) { return item.row; });
    if (followed != nullptr) {
        // Rows that nobody wrote to are all alike.
        *followed = static_cast<int>(std::find(rows_.begin(), rows_.end(), row_of_interest) - rows_.begin());
    }
}

int CUGMem::SortBy(int column, const Comparison& compare, int* followed) {
    if (!sortable(column) || !compare) {
        return 1;
    }
    const RaisedFlag no_changes(sorting_);
    rows_.resize(static_cast<std::size_t>(row_count_), BlockArena::none);
    std::vector<CUGCell> records(rows_.size());
    std::vector<SortItem> items(rows_.size());
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (read_cell(column, static_cast<int>(row), records[row])) {
            items[row].cell = &records[row];
        }
    }
    sort_rows(
        items, [&compare](const SortItem& a, const SortItem& b) { return compare(a.cell, b.cell); }, followed);
    return 0;
}

int CUGMem::SortByKeys(int column, const KeyedOrder& order, int* followed) {
    if (!sortable(column)) {
        return 1;
    }
    const RaisedFlag no_changes(sorting_);
    rows_.resize(static_cast<std::size_t>(row_count_), BlockArena::none);
    std::vector<KeyedItem> items(rows_.size());
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        CUGCell cell;
        const bool present = read_cell(column, static_cast<int>(row), cell);
        static_cast<SortKey&>(items[row]) = order.read(present ? &cell : nullptr);
    }
    sort_rows(
        items, [&order](const KeyedItem& a, const KeyedItem& b) { return order.compare(a, b); }, followed);
    return 0;
}
