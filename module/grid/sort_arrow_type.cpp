#include "grid/sort_arrow_type.h"

#include <algorithm>

#include "bidi/draw_bidi_text.h"
#include "grid/control_drawing.h"

using namespace corvanes;

namespace {

constexpr int arrow_margin = 6;
constexpr int strip = 2 * arrow_margin + arrow_base;

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
        draw_arrow(dc, layout_rect(arrow), (options & arrow_down_ascending) != 0 ? arrow_down : arrow_up,
                   ::GetSysColor(COLOR_BTNTEXT));
    }
}

SIZE CUGSortArrowType::BestSize(CDC& dc, const CUGCell& cell) const {
    const SIZE text = CellTextSize(dc, cell.GetText());
    return {text.cx + strip, text.cy};
}
