#include "grid/arrow_type.h"

using namespace corvanes;

namespace {

constexpr int arrow_margin = 4;

// The first direction among the cell's options, as the number of a part; 0 when there is none.
int direction_of(const CUGCell& cell) {
    for (const ArrowDirection direction : {arrow_up, arrow_down, arrow_left, arrow_right}) {
        if ((cell.GetCellTypeOptions() & direction) != 0) {
            return static_cast<int>(direction);
        }
    }
    return 0;
}

}  // namespace

int CUGArrowType::StripWidth(const CUGCell& cell) const {
    return direction_of(cell) != 0 ? arrow_base + 2 * arrow_margin : 0;
}

void CUGArrowType::DrawStrip(CDC& dc, const ControlScene& scene, const Box& strip, const CellLook& look) const {
    const int shift = look.pressed_part != no_part ? 1 : 0;
    const Box arrow{strip.left + shift, strip.top + shift, strip.right + shift, strip.bottom + shift};
    draw_arrow(dc, arrow, static_cast<ArrowDirection>(direction_of(scene.cell)), look.text);
}

int CUGArrowType::StripPartAt(const ControlScene& scene, const Box&, POINT) const {
    return direction_of(scene.cell);
}

int CUGArrowType::KeyPart(const ControlScene& scene) const {
    return direction_of(scene.cell);
}
