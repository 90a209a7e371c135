#include "grid/cell_grid.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace corvanes {
namespace {

// Cell type indices are kept in 16 bits.
constexpr std::size_t most_cell_types = std::numeric_limits<std::uint16_t>::max();

}  // namespace

bool CellGrid::Addresses(int column, int row) const {
    return column >= -1 && column < GetColumnCount() && row >= -1 && row < GetRowCount();
}

int CellGrid::GetCell(int column, int row, CUGCell* cell) {
    return source_->GetCell(column, row, cell);
}

int CellGrid::SetCell(int column, int row, const CUGCell* cell) {
    return source_->SetCell(column, row, cell);
}

int CellGrid::SetCellText(int column, int row, LPCWSTR text) {
    return source_->SetCellText(column, row, text);
}

LPCWSTR CellGrid::GetCellText(int column, int row) {
    return source_->GetCellText(column, row);
}

int CellGrid::GetCellText(int column, int row, CString& text) {
    if (!Addresses(column, row)) {
        return 1;
    }
    text = GetCellText(column, row);
    return 0;
}

template <class Change>
int CellGrid::ChangeCell(int column, int row, Change change) {
    CUGCell cell;
    if (source_->GetCell(column, row, &cell) != 0) {
        return 1;
    }
    change(cell);
    return source_->SetCell(column, row, &cell);
}

int CellGrid::SetCellLabel(int column, int row, LPCWSTR text) {
    return ChangeCell(column, row, [text](CUGCell& cell) { cell.SetLabelText(text); });
}

int CellGrid::SetCellTypeIndex(int column, int row, int index) {
    if (index < 0 || static_cast<std::size_t>(index) >= most_cell_types) {
        return 1;
    }
    return ChangeCell(column, row, [index](CUGCell& cell) { cell.SetCellType(index); });
}

int CellGrid::SetCellTypeOptions(int column, int row, DWORD bits) {
    return ChangeCell(column, row, [bits](CUGCell& cell) { cell.SetCellTypeOptions(bits); });
}

void CellGrid::OfferColumnWidth(int column, int width) {
    width = std::clamp(width, ColumnLayout::narrowest_column, ColumnLayout::widest_column);
    OnGridColumnSizing(column, &width);
    SetColumnWidth(column, std::max(0, width));
}

int CellGrid::AddCellType(CUGCellType* type) {
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

CUGCellType& CellGrid::CellType(int index) {
    return index >= 0 && static_cast<std::size_t>(index) < types_.size() ? *types_[index] : *types_[type_normal];
}

CUGCellType& CellGrid::CellTypeAt(int column, int row) {
    CUGCell cell;
    GetCell(column, row, &cell);
    return CellType(cell.GetCellType());
}

void CellGrid::HoldCell(CellHold hold) {
    hold_ = std::move(hold);
    RedrawCell(hold_->column, hold_->row);
}

std::optional<CellHold> CellGrid::TakeHold() {
    const std::optional<CellHold> taken = std::exchange(hold_, std::nullopt);
    if (taken) {
        RedrawCell(taken->column, taken->row);
    }
    return taken;
}

void CellGrid::CellsRearranged() {
    ++arrangement_;
    if (TakeHold()) {
        ::ReleaseCapture();
    }
}

}  // namespace corvanes
