// The painting area's part that serves cells whose control is held, and the wheel above the current cell.
#include "grid/cell_grid.h"
#include "grid/painting_area.h"

using namespace corvanes;

namespace {

// A held control repeats what it does: the first pause and the later intervals, in milliseconds.
constexpr UINT hold_pause = 400;
constexpr UINT hold_interval = 50;

}  // namespace

CellPlace CUGGrid::PlaceOf(const CellHold& hold) const {
    return {hold.column, hold.row, CellRectangle(hold.column, hold.row)};
}

LRESULT CUGGrid::OnKeyUp(WPARAM key, LPARAM) {
    const CellHold* held = grid().HeldCell();
    if (key == VK_SPACE && held != nullptr && held->by_key) {
        const CellHold hold = *grid().TakeHold();
        hold.type->OnRelease(grid(), PlaceOf(hold), hold);
    }
    return 0;
}

// What a step does may open a window and wait for it: no other step comes before it is done.
void CUGGrid::HoldOn() {
    const CellHold* hold = grid().HeldCell();
    if (hold != nullptr && !hold->by_key && hold->type->OnHoldOn(grid(), PlaceOf(*hold)) && m_hWnd != nullptr) {
        SetTimer(hold_timer, hold_interval);
    }
}

LRESULT CUGGrid::OnCellWheel(WPARAM turn, LPARAM screen_point) {
    CPoint point(screen_point);
    ::ScreenToClient(m_hWnd, &point);
    return TurnCell(GET_WHEEL_DELTA_WPARAM(turn), point) ? 0 : OnWheel(turn, screen_point);
}

bool CUGGrid::TurnCell(int turn, POINT point) {
    const CellPlace place = CurrentPlace();
    if (::GetKeyState(VK_SHIFT) < 0 || grid().IsEditing() || grid().HeldCell() != nullptr ||
        ::PtInRect(&place.rect, point) == 0) {
        return false;
    }
    CUGCellType& type = grid().CellTypeAt(place.column, place.row);
    return type.OnWheel(grid(), place, 0) && type.OnWheel(grid(), place, cell_wheel_.add(turn, 1));
}

void CUGGrid::WaitToHoldOn() {
    SetTimer(hold_timer, hold_pause);
}

void CUGGrid::ReleaseHold(const CellHold& hold, POINT point) {
    const CellPlace place = PlaceOf(hold);
    const unsigned arrangement = grid().arrangement();
    hold.type->OnRelease(grid(), place, hold);
    if (arrangement == grid().arrangement()) {
        RECT cell = place.rect;
        grid().OnGridLeftClick(place.column, place.row, 0, &cell, &point, 1);
    }
}
