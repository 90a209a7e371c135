#include "grid/sort_arrow_type.h"

#include <algorithm>

using namespace corvanes;

namespace {

constexpr int arrow_height = 5;
constexpr int arrow_margin = 6;
constexpr int strip = 2 * arrow_margin + 2 * arrow_height - 1;

// A filled triangle, `arrow_height` lines of pixels high, drawn line by line so that it is the same on every device.
void draw_arrow(CDC& dc, int center, int top, bool down, COLORREF color) {
    for (int line = 0; line < arrow_height; ++line) {
        const int half = down ? arrow_height - 1 - line : line;
        const RECT pixels{center - half, top + line, center + half + 1, top + line + 1};
        dc.FillSolidRect(&pixels, color);
    }
}

}  // namespace

void CUGSortArrowType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const CellLook& look) {
    const std::uint32_t options = cell.GetCellTypeOptions();
    if ((options & (arrow_up_descending | arrow_down_ascending)) == 0) {
        CUGCellType::OnDraw(dc, rect, cell, look);
        return;
    }
    RECT text = rect;
    text.right = std::max(rect.left, rect.right - strip);
    DrawCellText(dc, text, cell.GetText(), look);

    const RECT arrow{text.right, rect.top, rect.right, rect.bottom};
    dc.FillSolidRect(&arrow, look.background);
    if (arrow.right - arrow.left == strip) {
        const int top = rect.top + std::max<int>(0, (rect.bottom - rect.top - arrow_height) / 2);
        draw_arrow(dc, rect.right - strip / 2 - 1, top, (options & arrow_down_ascending) != 0,
                   ::GetSysColor(COLOR_BTNTEXT));
    }
}

SIZE CUGSortArrowType::BestSize(CDC& dc, const CUGCell& cell) const {
    const SIZE text = CellTextSize(dc, cell.GetText());
    return {text.cx + strip, text.cy};
}
