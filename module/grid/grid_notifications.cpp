#include "grid/grid_notifications.h"

std::wstring CUGNotifications::OnGridCellsChange(const std::vector<corvanes::CellChange>& changes) {
    for (const auto& [cell, text] : changes) {
        if (OnGridEditVerify(cell.column, cell.row, nullptr, text.c_str()) != 1 ||
            OnGridEditFinish(cell.column, cell.row, nullptr, text.c_str(), FALSE) == 0) {
            return L"Row " + std::to_wstring(cell.row + 1) + L": \"" + text + L"\" is not accepted";
        }
    }
    return {};
}
