// CUGMem, the grid's own store of cells in memory.
#pragma once

#include <deque>
#include <vector>

#include "grid/block_arena.h"
#include "grid/cell_styles.h"
#include "grid/data_source.h"

// A cell costs eight bytes and its text; a row that nobody wrote to costs nothing. Appending a row takes constant time,
// and so does deleting the last or the first one. While a sort runs, every change is refused with 1, so that a
// comparison cannot pull the rows from under it.
class CUGMem : public CUGDataSource {
  public:
    CUGMem() = default;

    int SetRowCount(int rows) override;
    int SetColumnCount(int columns) override;
    int GetCell(int column, int row, CUGCell* cell) override;
    int SetCell(int column, int row, const CUGCell* cell) override;
    int SetCellText(int column, int row, const wchar_t* text) override;
    const wchar_t* GetCellText(int column, int row) override;
    int InsertRow(int row) override;
    int AppendRow() override;
    int DeleteRow(int row) override;
    int SortBy(int column, const Comparison& compare, int* followed = nullptr) override;
    int SortByKeys(int column, const corvanes::KeyedOrder& order, int* followed = nullptr) override;

    int GetRowCount() const { return row_count_; }
    // How many bytes the rows and texts take.
    std::size_t GetMemoryUsed() const;

  private:
    using Handle = corvanes::BlockArena::Handle;

    // A text's block is as long as the text asks for, so the text itself tells the size to release.
    struct StoredCell {
        Handle text = corvanes::BlockArena::none;
        corvanes::CellStyles::Index style = corvanes::CellStyles::empty;
    };
    // A row's block: this header, then its cells from the side heading's on.
    struct RowHeader {
        std::uint32_t width;
        std::uint32_t unused;
    };
    struct SortItem {
        CUGCell* cell = nullptr;
        Handle row = corvanes::BlockArena::none;
    };
    struct KeyedItem : corvanes::SortKey {
        Handle row = corvanes::BlockArena::none;
    };

    bool addresses(int column, int row) const;
    bool sortable(int column) const { return column >= 0 && column < column_count_ && writable(); }
    // False for a cell that nothing was ever put into.
    bool read_cell(int column, int row, CUGCell& cell) const;
    template <class Item, class Compare>
    void sort_rows(std::vector<Item>& items, Compare compare, int* followed);
    bool writable() const { return !sorting_; }
    Handle row_at(int row) const;
    RowHeader* header(Handle row) const { return static_cast<RowHeader*>(arena_.at(row)); }
    StoredCell* cells(Handle row) const { return reinterpret_cast<StoredCell*>(header(row) + 1); }
    // The address of the cell; null when nothing was ever written there.
    StoredCell* find(int column, int row) const;
    StoredCell& reach(int column, int row);
    Handle widened(Handle row, std::uint32_t width);
    const wchar_t* text_of(const StoredCell& cell) const;
    Handle stored_text(const wchar_t* text);
    void release_text(StoredCell& cell) noexcept;
    void replace_text(StoredCell& cell, const wchar_t* text);
    void mark_as_text(StoredCell& cell);
    void clear_cell(StoredCell& cell) noexcept;
    void release_row(Handle row) noexcept;
    void shorten(Handle row, std::uint32_t width) noexcept;
    void borrow(const StoredCell& from, CUGCell& cell) const;

    corvanes::BlockArena arena_;
    corvanes::CellStyles styles_;
    Handle heading_ = corvanes::BlockArena::none;
    // Rows behind the last one ever written are not kept, so this may be shorter than the row count.
    std::deque<Handle> rows_;
    int row_count_ = 0;
    int column_count_ = 0;
    std::uint32_t usual_width_ = 0;
    bool sorting_ = false;
};
