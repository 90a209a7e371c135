#include "grid/control_drawing.h"

#include <algorithm>

#include "grid/pixel_color.h"

namespace corvanes {

RECT rect_of(const Box& box) {
    return {box.left, box.top, box.right, box.bottom};
}

int font_height(CDC& dc) {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc.m_hDC, &metrics);
    return metrics.tmHeight;
}

void draw_arrow(CDC& dc, const Box& around, ArrowDirection direction, COLORREF color) {
    const bool upright = direction == arrow_up || direction == arrow_down;
    const int room = upright ? std::min(around.height(), (around.width() + 1) / 2)
                             : std::min(around.width(), (around.height() + 1) / 2);
    const int depth = std::min(arrow_depth, room);
    const int base = 2 * depth - 1;
    const Box place = centered(around, upright ? base : depth, upright ? depth : base);
    const bool tip_first = direction == arrow_up || direction == arrow_left;
    for (int line = 0; line < depth; ++line) {
        const int half = tip_first ? line : depth - 1 - line;
        const int middle = (upright ? place.left : place.top) + depth - 1;
        const RECT pixels = upright ? RECT{middle - half, place.top + line, middle + half + 1, place.top + line + 1}
                                    : RECT{place.left + line, middle - half, place.left + line + 1, middle + half + 1};
        dc.FillSolidRect(&pixels, color);
    }
}

Box draw_button_face(CDC& dc, const Box& box, bool pressed, bool disabled) {
    RECT face = rect_of(box);
    if (::IsRectEmpty(&face) == 0) {
        ::DrawFrameControl(dc.m_hDC, &face, DFC_BUTTON,
                           DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0) | (disabled ? DFCS_INACTIVE : 0));
    }
    const Box inside = deflated(box, 2, 2);
    const int shift = pressed ? 1 : 0;
    return {inside.left + shift, inside.top + shift, inside.right + shift, inside.bottom + shift};
}

COLORREF button_text_color(bool disabled) {
    return ::GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
}

Box draw_well(CDC& dc, const Box& box) {
    const RECT frame = rect_of(box);
    dc.FillSolidRect(&frame, ::GetSysColor(COLOR_BTNSHADOW));
    const Box inside = deflated(box, 1, 1);
    const RECT field = rect_of(inside);
    dc.FillSolidRect(&field, ::GetSysColor(COLOR_WINDOW));
    return inside;
}

void draw_parts_with_text(CDC& dc, const std::vector<ColoredPart>& parts, const Box& text_box, const wchar_t* text,
                          CellLook look) {
    for (const ColoredPart& part : parts) {
        const RECT area = rect_of(part.box);
        if (::IsRectEmpty(&area) != 0) {
            continue;
        }
        const SavedDrawing saved(dc);
        ::IntersectClipRect(dc.m_hDC, area.left, area.top, area.right, area.bottom);
        dc.FillSolidRect(&area, part.color);
        look.text = readable_on(part.color);
        DrawTextOver(dc, rect_of(text_box), text, look);
    }
}

}  // namespace corvanes
