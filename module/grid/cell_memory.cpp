#include "grid/cell_memory.h"

#include <algorithm>
#include <cstring>
#include <cwchar>
#include <limits>
#include <new>

using namespace corvanes;

namespace {

// Rows wider than this are not taken as a measure for new rows.
constexpr std::uint32_t widest_usual_row = 64;

constexpr std::size_t text_units(std::size_t characters) {
    return ((characters + 1) * sizeof(wchar_t) + BlockArena::unit_size - 1) / BlockArena::unit_size;
}

}  // namespace

int CUGDataSource::SetCellText(int column, int row, const wchar_t* text) {
    CUGCell cell;
    if (GetCell(column, row, &cell) != 0) {
        return 1;
    }
    cell.SetText(text);
    return SetCell(column, row, &cell);
}

bool CUGMem::addresses(int column, int row) const {
    return column >= -1 && column < column_count_ && row >= -1 && row < row_count_;
}

CUGMem::Handle CUGMem::row_at(int row) const {
    if (row < 0) {
        return heading_;
    }
    return static_cast<std::size_t>(row) < rows_.size() ? rows_[row] : BlockArena::none;
}

CUGMem::StoredCell* CUGMem::find(int column, int row) const {
    const Handle block = addresses(column, row) ? row_at(row) : BlockArena::none;
    const auto place = static_cast<std::uint32_t>(column + 1);
    return block != BlockArena::none && place < header(block)->width ? cells(block) + place : nullptr;
}

CUGMem::StoredCell& CUGMem::reach(int column, int row) {
    if (row >= 0 && static_cast<std::size_t>(row) >= rows_.size()) {
        rows_.resize(static_cast<std::size_t>(row) + 1, BlockArena::none);
    }
    Handle& block = row < 0 ? heading_ : rows_[row];
    const auto place = static_cast<std::uint32_t>(column + 1);
    if (block == BlockArena::none || header(block)->width <= place) {
        const std::uint32_t width = std::max(place + 1, block == BlockArena::none ? usual_width_ : 0);
        block = widened(block, width);
        if (width <= widest_usual_row) {
            usual_width_ = std::max(usual_width_, width);
        }
    }
    return cells(block)[place];
}

CUGMem::Handle CUGMem::widened(Handle row, std::uint32_t width) {
    const Handle wider = arena_.allocate(1 + width);
    const std::uint32_t kept = row != BlockArena::none ? header(row)->width : 0;
    new (arena_.at(wider)) RowHeader{width, 0};
    std::uninitialized_fill_n(cells(wider), width, StoredCell());
    if (row != BlockArena::none) {
        std::copy_n(cells(row), kept, cells(wider));
        arena_.release(row, 1 + kept);
    }
    return wider;
}

const wchar_t* CUGMem::text_of(const StoredCell& cell) const {
    return cell.text != BlockArena::none ? static_cast<const wchar_t*>(arena_.at(cell.text)) : nullptr;
}

CUGMem::Handle CUGMem::stored_text(const wchar_t* text) {
    const std::size_t length = std::wcslen(text);
    const Handle block = arena_.allocate(text_units(length));
    std::wmemcpy(static_cast<wchar_t*>(arena_.at(block)), text, length + 1);
    return block;
}

void CUGMem::release_text(StoredCell& cell) noexcept {
    if (cell.text != BlockArena::none) {
        arena_.release(cell.text, text_units(std::wcslen(text_of(cell))));
        cell.text = BlockArena::none;
    }
}

// The new text may be the old one, or a part of it.
void CUGMem::replace_text(StoredCell& cell, const wchar_t* text) {
    const Handle replacement = stored_text(text);
    release_text(cell);
    cell.text = replacement;
}

void CUGMem::mark_as_text(StoredCell& cell) {
    if (cell.style == CellStyles::plain_text) {
        return;
    }
    CellStyle style = styles_[cell.style];
    style.properties |= cell_text | cell_data_type;
    style.data_type = data_text;
    const CellStyles::Index marked = styles_.acquire(style);
    styles_.release(cell.style);
    cell.style = marked;
}

void CUGMem::clear_cell(StoredCell& cell) noexcept {
    release_text(cell);
    styles_.release(cell.style);
    cell.style = CellStyles::empty;
}

void CUGMem::shorten(Handle row, std::uint32_t width) noexcept {
    for (std::uint32_t place = width; row != BlockArena::none && place < header(row)->width; ++place) {
        clear_cell(cells(row)[place]);
    }
}

void CUGMem::release_row(Handle row) noexcept {
    if (row != BlockArena::none) {
        shorten(row, 0);
        arena_.release(row, 1 + header(row)->width);
    }
}

void CUGMem::borrow(const StoredCell& from, CUGCell& cell) const {
    const CellStyle& style = styles_[from.style];
    if (from.text != BlockArena::none) {
        cell.BorrowText(text_of(from));
    }
    if ((style.properties & cell_label) != 0) {
        cell.BorrowLabelText(style.label.c_str());
    }
    if ((style.properties & cell_data_type) != 0) {
        cell.SetDataType(style.data_type);
    }
    if ((style.properties & cell_type_index) != 0) {
        cell.SetCellType(style.type_index);
    }
    if ((style.properties & cell_type_options) != 0) {
        cell.SetCellTypeOptions(style.options);
    }
}

int CUGMem::SetRowCount(int rows) {
    if (rows < 0 || !writable()) {
        return 1;
    }
    if (rows == 0) {
        usual_width_ = 0;
    }
    while (rows_.size() > static_cast<std::size_t>(rows)) {
        release_row(rows_.back());
        rows_.pop_back();
    }
    row_count_ = rows;
    return 0;
}

int CUGMem::SetColumnCount(int columns) {
    if (columns < 0 || !writable()) {
        return 1;
    }
    if (columns < column_count_) {
        const auto width = static_cast<std::uint32_t>(columns + 1);
        shorten(heading_, width);
        for (const Handle row : rows_) {
            shorten(row, width);
        }
    }
    column_count_ = columns;
    return 0;
}

int CUGMem::GetCell(int column, int row, CUGCell* cell) {
    if (!addresses(column, row) || cell == nullptr) {
        return 1;
    }
    CUGCell view;
    if (const StoredCell* stored = find(column, row)) {
        borrow(*stored, view);
    }
    // Assigning copies what the view only borrows.
    *cell = static_cast<const CUGCell&>(view);
    return 0;
}

int CUGMem::SetCell(int column, int row, const CUGCell* cell) {
    if (!addresses(column, row) || cell == nullptr || !writable()) {
        return 1;
    }
    CellStyle style;
    style.properties = cell->GetPropertyFlags();
    style.options = cell->GetCellTypeOptions();
    style.data_type = static_cast<std::int16_t>(cell->IsPropertySet(cell_data_type) ? cell->GetDataType() : 0);
    style.type_index = static_cast<std::uint16_t>(cell->GetCellType());
    style.label = cell->GetLabelText() != nullptr ? cell->GetLabelText() : L"";

    StoredCell& stored = reach(column, row);
    if (cell->GetText() != nullptr) {
        replace_text(stored, cell->GetText());
    } else {
        release_text(stored);
    }
    const CellStyles::Index acquired = styles_.acquire(style);
    styles_.release(stored.style);
    stored.style = acquired;
    return 0;
}

int CUGMem::SetCellText(int column, int row, const wchar_t* text) {
    if (!addresses(column, row) || !writable()) {
        return 1;
    }
    StoredCell& stored = reach(column, row);
    replace_text(stored, text != nullptr ? text : L"");
    mark_as_text(stored);
    return 0;
}

const wchar_t* CUGMem::GetCellText(int column, int row) {
    const StoredCell* stored = find(column, row);
    return stored != nullptr ? text_of(*stored) : nullptr;
}

int CUGMem::InsertRow(int row) {
    if (row < 0 || row > row_count_ || row_count_ == std::numeric_limits<int>::max() || !writable()) {
        return 1;
    }
    if (static_cast<std::size_t>(row) < rows_.size()) {
        rows_.insert(rows_.begin() + row, BlockArena::none);
    }
    ++row_count_;
    return 0;
}

int CUGMem::AppendRow() {
    return InsertRow(row_count_);
}

int CUGMem::DeleteRow(int row) {
    if (row < 0 || row >= row_count_ || !writable()) {
        return 1;
    }
    if (static_cast<std::size_t>(row) < rows_.size()) {
        release_row(rows_[row]);
        rows_.erase(rows_.begin() + row);
    }
    --row_count_;
    return 0;
}

std::size_t CUGMem::GetMemoryUsed() const {
    return arena_.memory_used() + rows_.size() * sizeof(Handle);
}
