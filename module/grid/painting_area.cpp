#include "grid/painting_area.h"

#include <algorithm>

#include "grid/cell_grid.h"
#include "grid/cell_movement.h"
#include "grid/grid_command.h"
#include "grid/top_heading.h"

using namespace corvanes;

namespace {

// The pixels at a cell's right and lower edge that belong to the grid lines.
constexpr int line_width = 1;
constexpr COLORREF line_color = RGB(192, 192, 192);

bool key_held(int key) {
    return ::GetKeyState(key) < 0;
}

}  // namespace

BEGIN_MESSAGE_MAP(CUGGrid, GridPane)
    ON_WM_LBUTTONDOWN()
    ON_WM_LBUTTONUP()
    ON_WM_MOUSEMOVE()
    ON_WM_KEYDOWN()
    ON_WM_SYSKEYDOWN()
    ON_WM_CHAR()
    ON_WM_SETFOCUS()
    ON_WM_KILLFOCUS()
    ON_WM_CAPTURECHANGED()
    ON_WM_CONTEXTMENU()
    ON_WM_TIMER()
    ON_MESSAGE(WM_RBUTTONDOWN, &CUGGrid::OnRightDown)
    ON_WM_GETDLGCODE()
    ON_WM_DESTROY()
    ON_MESSAGE(WM_KEYUP, &CUGGrid::OnKeyUp)
    ON_MESSAGE(WM_MOUSEWHEEL, &CUGGrid::OnCellWheel)
    ON_MESSAGE(WM_MOUSEHOVER, &CUGGrid::OnMouseHover)
    ON_MESSAGE(WM_MOUSELEAVE, &CUGGrid::OnMouseLeave)
END_MESSAGE_MAP()

RECT CUGGrid::CellRectangle(int column, int row) const {
    const GridState& grid_state = state();
    if (!grid_state.columns.contains(column) || row < grid_state.top_row || row >= grid_state.rows.count()) {
        return {0, 0, 0, 0};
    }
    const int top = grid_state.rows.distance(grid_state.top_row, row, height());
    const int left = grid_state.columns.left(column) - grid_state.scroll_x;
    const int right = grid_state.columns.left(column + 1) - grid_state.scroll_x;
    if (top >= height() || right - left <= line_width || right <= 0 || left >= width()) {
        return {0, 0, 0, 0};
    }
    return {std::max(left, 0), top, std::min(right - line_width, width()),
            top + grid_state.rows.height(row) - line_width};
}

void CUGGrid::CellAt(POINT point, int* column, int* row) const {
    const GridState& grid_state = state();
    *column = grid_state.columns.at(point.x + grid_state.scroll_x);
    *row = grid_state.rows.at(point.y, grid_state.top_row);
}

void CUGGrid::RedrawCell(int column, int row) {
    RECT with_lines = CellRectangle(column, row);
    if (::IsRectEmpty(&with_lines) == 0) {
        with_lines.right += line_width;
        with_lines.bottom += line_width;
        RedrawPart(with_lines);
    }
}

void CUGGrid::RedrawRow(int row) {
    const RowLayout& rows = state().rows;
    if (row >= state().top_row && row < rows.count()) {
        const int top = rows.distance(state().top_row, row, height());
        RedrawPart({0, top, width(), std::min(height(), top + rows.height(row))});
    }
}

void CUGGrid::Paint(CDC& dc, const RECT& dirty) {
    if (grid().Commands().StatusDue()) {
        // The sum may be that of a million cells, so it is made when the selection has not changed for a moment.
        constexpr UINT moment = 150;  // milliseconds
        SetTimer(status_timer, moment);
    }
    const RowLayout& rows = state().rows;
    int top = 0;
    for (int row = state().top_row; row < rows.count() && top < dirty.bottom; ++row) {
        const int row_height = rows.height(row);
        if (top + row_height > dirty.top) {
            PaintRow(dc, dirty, row, top, row_height);
        }
        top += row_height;
    }
    const COLORREF background = ::GetSysColor(COLOR_WINDOW);
    const int right = state().columns.total_width() - state().scroll_x;
    const RECT below{dirty.left, std::max<LONG>(top, dirty.top), dirty.right, dirty.bottom};
    const RECT beside{std::max<LONG>(right, dirty.left), dirty.top, dirty.right, std::min<LONG>(top, dirty.bottom)};
    for (const RECT& rest : {below, beside}) {
        if (::IsRectEmpty(&rest) == 0) {
            dc.FillSolidRect(&rest, background);
        }
    }
}

void CUGGrid::PaintRow(CDC& dc, const RECT& dirty, int row, int top, int row_height) {
    const ColumnLayout& columns = state().columns;
    const int first = columns.at(static_cast<int>(dirty.left) + state().scroll_x);
    if (first < 0) {
        return;
    }
    int left = columns.left(first) - state().scroll_x;
    for (int column = first; column < columns.count() && left < dirty.right; ++column) {
        const int right = left + columns.shown_width(column);
        if (right > left) {
            const int bottom = top + row_height;
            const int visible_left = std::max(left, 0);
            PaintCell(dc, column, row, {visible_left, top, std::min(right - line_width, width()), bottom - line_width});
            const RECT beside{right - line_width, top, right, bottom};
            const RECT below{left, bottom - line_width, right - line_width, bottom};
            dc.FillSolidRect(&beside, line_color);
            dc.FillSolidRect(&below, line_color);
            if (column == state().current_column && row == state().current_row) {
                MarkCurrentCell(dc, {visible_left, top, std::min(right, width()), bottom});
            }
        }
        left = right;
    }
}

void CUGGrid::PaintCell(CDC& dc, int column, int row, const RECT& inside) {
    if (::IsRectEmpty(&inside) != 0) {
        return;
    }
    CUGCell cell;
    grid().GetCell(column, row, &cell);
    const bool selected = state().selection.contains(column, row);
    CellLook look{::GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT),
                  ::GetSysColor(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW), state().columns.aligned_right(column)};
    CUGCellType& type = grid().CellType(cell.GetCellType());
    const CellHold* hold = grid().HeldCell();
    if (hold != nullptr && hold->column == column && hold->row == row && hold->type == &type) {
        look.pressed_part = hold->over ? hold->part : 0;
        if (hold->text) {
            cell.SetText(hold->text->c_str());
        }
    }
    type.OnDraw(dc, inside, cell, look);
}

// Draws the frame of the current cell: two pixels of the highlight colour with the focus, one grey pixel without. It
// lies on the grid lines below and beside the cell, so that the foot of the text stays free.
void CUGGrid::MarkCurrentCell(CDC& dc, const RECT& cell) {
    const bool focused = ::GetFocus() == m_hWnd;
    const COLORREF color = ::GetSysColor(focused ? COLOR_HIGHLIGHT : COLOR_GRAYTEXT);
    const int thick = focused ? 2 : 1;
    const RECT sides[] = {{cell.left, cell.top, cell.right, cell.top + thick},
                          {cell.left, cell.bottom - thick, cell.right, cell.bottom},
                          {cell.left, cell.top, cell.left + thick, cell.bottom},
                          {cell.right - thick, cell.top, cell.right, cell.bottom}};
    for (const RECT& side : sides) {
        dc.FillSolidRect(&side, color);
    }
}

CellPlace CUGGrid::PlaceAt(POINT point) const {
    CellPlace place{};
    CellAt(point, &place.column, &place.row);
    place.rect = CellRectangle(place.column, place.row);
    return place;
}

void CUGGrid::NotifyClick(const CellPlace& place, int updn, POINT point, bool in_cell) {
    const unsigned arrangement = grid().arrangement();
    const bool processed =
        in_cell && grid().CellTypeAt(place.column, place.row).OnLeftClick(grid(), place, updn, point);
    if (arrangement != grid().arrangement()) {
        return;  // the place is another cell's now
    }
    RECT cell = place.rect;
    grid().OnGridLeftClick(place.column, place.row, updn, &cell, &point, processed ? 1 : 0);
}

void CUGGrid::OnLButtonDown(UINT keys, CPoint point) {
    hint_.Hide();
    if (!grid().TakeFocus(*this)) {
        return;
    }
    grid().TakeHold();
    grid().UpdateLayout();
    const CellPlace place = PlaceAt(point);
    const bool in_cell = place.column >= 0 && place.row >= 0;
    if (in_cell) {
        grid().ClickCell(place.column, place.row, (keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0);
    }
    // The mouse is captured before the notification, which may open an editor under the pointer, so that the release
    // still comes here.
    SetCapture();
    pressed_ = place;
    NotifyClick(place, 1, point, in_cell);
    if (grid().HeldCell() != nullptr) {
        WaitToHoldOn();
        return;
    }
    grid().PointInEditor(point, place.rect);
}

void CUGGrid::OnLButtonUp(UINT, CPoint point) {
    if (!pressed_) {
        return;
    }
    const CellPlace pressed = *pressed_;
    const std::optional<CellHold> hold = grid().TakeHold();
    ::ReleaseCapture();
    if (hold) {
        ReleaseHold(*hold, point);
        return;
    }
    const bool stayed = ::PtInRect(&pressed.rect, point) != 0 && pressed.row < state().rows.count();
    NotifyClick(stayed ? pressed : PlaceAt(point), 0, point, stayed);
}

void CUGGrid::OnMouseMove(UINT keys, CPoint point) {
    if (const CellHold* hold = grid().HeldCell(); hold != nullptr && !hold->by_key) {
        hold->type->OnDrag(grid(), PlaceOf(*hold), point);
        return;
    }
    WaitForHint(point);
    if (!pressed_ || (keys & MK_LBUTTON) == 0 || grid().IsEditing()) {
        return;
    }
    DragTo(point);
}

CellAddress CUGGrid::CellTowards(POINT point) const {
    const ColumnLayout& columns = state().columns;
    // The next column, just outside, is scrolled in.
    const LONG beside = std::clamp<LONG>(point.x, -1, width());
    const int column =
        columns.at(std::clamp(static_cast<int>(beside) + state().scroll_x, 0, columns.total_width() - 1));
    const int row = point.y < 0 ? std::max(0, state().top_row - 1) : state().rows.at(point.y, state().top_row);
    const bool below = row < 0 && point.y >= height();
    return {column, below ? state().rows.count() - 1 : row};
}

void CUGGrid::DragTo(POINT point) {
    constexpr UINT interval = 50;  // milliseconds
    dragged_to_ = point;
    const auto [column, row] = CellTowards(point);
    if (column >= 0 && row >= 0 && (column != state().current_column || row != state().current_row)) {
        grid().ClickCell(column, row, true, false);
    }
    const RECT inside{0, 0, width(), height()};
    if (::PtInRect(&inside, point) != 0) {
        KillTimer(drag_timer);
    } else {
        SetTimer(drag_timer, interval);
    }
}

void CUGGrid::OnTimer(UINT_PTR timer) {
    if (timer == drag_timer && pressed_) {
        DragTo(dragged_to_);
        return;
    }
    KillTimer(timer);
    if (timer == status_timer) {
        grid().Commands().ShowStatus();
    } else if (timer == hold_timer) {
        HoldOn();
    }
}

// A menu that is opened over the selection acts on it; elsewhere the cell under the pointer is selected first.
LRESULT CUGGrid::OnRightDown(WPARAM, LPARAM point) {
    hint_.Hide();
    if (grid().TakeFocus(*this)) {
        grid().UpdateLayout();
        const CellPlace place = PlaceAt(CPoint(point));
        if (place.column >= 0 && place.row >= 0 && !state().selection.contains(place.column, place.row)) {
            grid().ClickCell(place.column, place.row, false, false);
        }
    }
    return 0;
}

// The keyboard asks for the menu with the point -1, -1; the menu then opens at the current cell.
void CUGGrid::OnContextMenu(CWnd*, CPoint point) {
    hint_.Hide();
    if (grid().IsEditing()) {
        return;
    }
    if (point.x == -1 && point.y == -1) {
        const RECT cell = CurrentPlace().rect;
        point = CPoint(cell.left, std::min<LONG>(cell.bottom, height()));
        ClientToScreen(&point);
    }
    grid().Commands().ShowMenu(*this, point, state().current_column);
}

// A hint stays while the pointer is over its cell; over another one it waits until the pointer rests.
void CUGGrid::WaitForHint(POINT point) {
    int column = -1;
    int row = -1;
    CellAt(point, &column, &row);
    if (hint_.shown() && column == hinted_column_ && row == hinted_row_) {
        return;
    }
    hint_.Hide();
    TRACKMOUSEEVENT tracking{sizeof tracking, TME_HOVER | TME_LEAVE, m_hWnd, HOVER_DEFAULT};
    ::TrackMouseEvent(&tracking);
}

LRESULT CUGGrid::OnMouseHover(WPARAM, LPARAM point) {
    const CellPlace place = PlaceAt(CPoint(point));
    if (pressed_ || grid().IsEditing() || ::IsRectEmpty(&place.rect) != 0) {
        return 0;
    }
    CUGCell cell;
    grid().GetCell(place.column, place.row, &cell);
    CClientDC dc(this);
    const HGDIOBJ former = ::SelectObject(dc.m_hDC, grid().GetGridFont());
    const bool cut = grid().CellType(cell.GetCellType()).CutsText(dc, place.rect, cell);
    ::SelectObject(dc.m_hDC, former);
    if (cut) {
        hinted_column_ = place.column;
        hinted_row_ = place.row;
        RECT on_screen = place.rect;
        ::MapWindowPoints(m_hWnd, nullptr, reinterpret_cast<POINT*>(&on_screen), 2);
        hint_.Show(grid(), on_screen, cell.GetText(), grid().GetGridFont());
    }
    return 0;
}

LRESULT CUGGrid::OnMouseLeave(WPARAM, LPARAM) {
    hint_.Hide();
    return 0;
}

void CUGGrid::OnDestroy() {
    hint_.DestroyWindow();
    GridPane::OnDestroy();
}

CellPlace CUGGrid::CurrentPlace() const {
    const GridState& grid_state = state();
    return {grid_state.current_column, grid_state.current_row,
            CellRectangle(grid_state.current_column, grid_state.current_row)};
}

void CUGGrid::OnKeyDown(UINT key, UINT, UINT) {
    hint_.Hide();
    // Escape lets go of a control and leaves its cell as it was; other keys wait for its release.
    if (grid().HeldCell() != nullptr) {
        if (key == VK_ESCAPE && grid().TakeHold()) {
            ::ReleaseCapture();
        }
        return;
    }
    const CellPlace place = CurrentPlace();
    const bool has_cell = place.column >= 0 && place.row >= 0;
    const unsigned arrangement = grid().arrangement();
    const bool processed = has_cell && grid().CellTypeAt(place.column, place.row).OnKeyDown(grid(), place, key);
    if (processed && arrangement != grid().arrangement()) {
        return;
    }
    grid().OnGridKeyDown(&key, processed ? TRUE : FALSE);
    if (!processed && key != 0 && m_hWnd != nullptr && !grid().Commands().KeyDown(key)) {
        Navigate(key);
    }
}

void CUGGrid::OnSysKeyDown(UINT key, UINT repeat, UINT flags) {
    hint_.Hide();
    const CellPlace place = CurrentPlace();
    const bool has_cell = place.column >= 0 && place.row >= 0;
    const bool processed = has_cell && grid().CellTypeAt(place.column, place.row).OnKeyDown(grid(), place, key);
    if (!processed) {
        grid().Commands().SysKeyDown(key);
        // The system is told of commands too, so that it knows that Alt was not pressed for the menu.
        CWnd::OnSysKeyDown(key, repeat, flags);
    }
}

void CUGGrid::Navigate(UINT key) {
    const GridState& now = state();
    const bool control = key_held(VK_CONTROL);
    const int last = now.rows.count() - 1;
    switch (key) {
        case VK_UP:
            grid().MoveCurrentRow(row_up);
            break;
        case VK_DOWN:
        case VK_RETURN:
            grid().MoveCurrentRow(row_down);
            break;
        case VK_PRIOR:
            grid().MoveCurrentRow(page_up);
            break;
        case VK_NEXT:
            grid().MoveCurrentRow(page_down);
            break;
        case VK_LEFT:
            grid().MoveCurrentColumn(-1);
            break;
        case VK_RIGHT:
            grid().MoveCurrentColumn(1);
            break;
        case VK_HOME:
            grid().MoveCurrentCell(now.columns.first_shown(), control ? std::min(0, last) : now.current_row);
            break;
        case VK_END:
            grid().MoveCurrentCell(now.columns.last_shown(), control ? last : now.current_row);
            break;
        case VK_F3:
            if (now.columns.shows(now.current_column)) {
                grid().GetTopHeading().ClickColumn(now.current_column);
            }
            break;
        default:
            break;
    }
}

void CUGGrid::OnChar(UINT character, UINT, UINT) {
    // Control characters come along with keys that OnKeyDown has seen already.
    if (character < L' ') {
        return;
    }
    const CellPlace place = CurrentPlace();
    const bool has_cell = place.column >= 0 && place.row >= 0;
    const unsigned arrangement = grid().arrangement();
    const bool processed = has_cell && grid().CellTypeAt(place.column, place.row).OnCharDown(grid(), place, character);
    if (arrangement != grid().arrangement()) {
        return;
    }
    grid().OnGridCharDown(&character, processed ? TRUE : FALSE);
    if (!processed && character != 0 && m_hWnd != nullptr) {
        grid().Commands().CharDown(static_cast<wchar_t>(character));
    }
}

void CUGGrid::OnSetFocus(CWnd*) {
    RedrawCell(state().current_column, state().current_row);
}

void CUGGrid::OnKillFocus(CWnd*) {
    if (grid().TakeHold()) {
        ::ReleaseCapture();
    }
    RedrawCell(state().current_column, state().current_row);
}

void CUGGrid::OnCaptureChanged(CWnd*) {
    pressed_.reset();
    KillTimer(drag_timer);
    grid().TakeHold();
}

// The dialog keeps Tab and, as a rule, Return; the grid takes arrows, characters and Escape.
UINT CUGGrid::OnGetDlgCode() {
    const MSG* asking = GetCurrentMessage();
    const auto* pending = reinterpret_cast<const MSG*>(asking->lParam);
    const WPARAM key = pending != nullptr && pending->message == WM_KEYDOWN ? pending->wParam : 0;
    const bool wanted = key == VK_ESCAPE || (key == VK_RETURN && grid().TakesReturn());
    return DLGC_WANTARROWS | DLGC_WANTCHARS | (wanted ? DLGC_WANTMESSAGE : 0);
}
