#include "grid/ellipsis_type.h"

using namespace corvanes;

namespace {

constexpr int strip_width = 20;
constexpr int dot = 2;
constexpr int dots = 3;

// Draws the dots as squares of pixels, because those of a font stand at the foot of a line and grow with it.
void draw_dots(CDC& dc, const Box& around, COLORREF color) {
    const Box place = centered(around, 2 * dot * dots - dot, dot);
    for (int number = 0; number < dots; ++number) {
        const int left = place.left + 2 * dot * number;
        const RECT square{left, place.top, left + dot, place.bottom};
        dc.FillSolidRect(&square, color);
    }
}

}  // namespace

int CUGEllipsisType::StripWidth(const CUGCell&) const {
    return strip_width;
}

void CUGEllipsisType::DrawStrip(CDC& dc, const ControlScene& scene, const Box& strip, const CellLook& look) const {
    const Box face = draw_button_face(dc, deflated(strip, 1, 1), look.pressed_part != no_part, scene.disabled);
    draw_dots(dc, face, button_text_color(scene.disabled));
}

int CUGEllipsisType::StripPartAt(const ControlScene&, const Box&, POINT) const {
    return first_part;
}
