#include "grid/scroll_bars.h"

#include <algorithm>

#include "grid/grid_state.h"

namespace corvanes {

namespace {

// Programs move the thumb of a million rows by its 32-bit position; the message itself carries only 16 bits.
int thumb_position(HWND window, int bar) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    ::GetScrollInfo(window, bar, &info);
    return info.nTrackPos;
}

void set_bar(HWND window, int bar, int range, int page, int position, bool kept) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | (kept ? SIF_DISABLENOSCROLL : 0);
    info.nMax = std::max(0, range - 1);
    info.nPage = static_cast<UINT>(std::max(0, page));
    info.nPos = position;
    ::SetScrollInfo(window, bar, &info, TRUE);
}

int scrolled(HWND window, int bar, UINT code, int now, int line, int page, int end) {
    switch (code) {
        case SB_LINEUP:
            return now - line;
        case SB_LINEDOWN:
            return now + line;
        case SB_PAGEUP:
            return now - page;
        case SB_PAGEDOWN:
            return now + page;
        case SB_TOP:
            return 0;
        case SB_BOTTOM:
            return end;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return thumb_position(window, bar);
        default:
            return now;
    }
}

}  // namespace

int WheelSum::add(int turn, int steps_a_notch) {
    const bool turned_back = (turn < 0) != (rest_ < 0);
    rest_ = (turned_back ? 0 : rest_) + turn * steps_a_notch;
    const int steps = rest_ / WHEEL_DELTA;
    rest_ -= steps * WHEEL_DELTA;
    return steps;
}

CellSpace fit_scroll_bars(HWND window, GridState& state) {
    RECT client;
    ::GetClientRect(window, &client);
    const auto style = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE));
    const int bar_width = ::GetSystemMetrics(SM_CXVSCROLL);
    const int bar_height = ::GetSystemMetrics(SM_CYHSCROLL);
    int width = client.right - state.side.total_width() + ((style & WS_VSCROLL) != 0 ? bar_width : 0);
    int height = client.bottom - state.heading_height + ((style & WS_HSCROLL) != 0 ? bar_height : 0);

    const RowLayout& rows = state.rows;
    const int all_columns = state.columns.total_width();
    const auto rows_fit = [&rows](int space) {
        return rows.count() == 0 || (rows.last_top(space) == 0 && rows.distance(0, rows.count(), space + 1) <= space);
    };
    bool vertical = !rows_fit(height);
    const bool horizontal = all_columns > width - (vertical || state.keeps_vertical_bar ? bar_width : 0);
    if (horizontal) {
        height -= bar_height;
        vertical = !rows_fit(height);
    }
    if (vertical || state.keeps_vertical_bar) {
        width -= bar_width;
    }

    const int last_top = vertical ? rows.last_top(height) : 0;
    state.top_row = std::clamp(state.top_row, 0, last_top);
    state.scroll_x = std::clamp(state.scroll_x, 0, std::max(0, all_columns - std::max(0, width)));
    // A bar whose page covers its range is hidden by the system, or greyed where it is kept.
    set_bar(window, SB_VERT, vertical ? rows.count() : 0, rows.count() - last_top, state.top_row,
            state.keeps_vertical_bar);
    set_bar(window, SB_HORZ, horizontal ? all_columns : 0, std::max(1, width), state.scroll_x, false);
    return {std::max(0, width), std::max(0, height)};
}

int scrolled_row(HWND window, const GridState& state, UINT code, int page) {
    return scrolled(window, SB_VERT, code, state.top_row, 1, page, state.rows.count());
}

int scrolled_x(HWND window, const GridState& state, UINT code, int page) {
    return scrolled(window, SB_HORZ, code, state.scroll_x, horizontal_line, page, state.columns.total_width());
}

}  // namespace corvanes
