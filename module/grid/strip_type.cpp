#include "grid/strip_type.h"

namespace corvanes {

void StripType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    DrawTextOver(dc, TextPlace(rect_of(scene.box), scene.cell), scene.text(), look);
    if (const int width = StripWidth(scene.cell); width > 0) {
        DrawStrip(dc, scene, scene.shown(end_strip(scene.box, width)), look);
    }
}

int StripType::PartAt(CDC&, const ControlScene& scene, POINT point) const {
    const Box strip = end_strip(scene.box, StripWidth(scene.cell));
    const bool inside = holds(strip, static_cast<int>(point.x), static_cast<int>(point.y));
    return inside ? StripPartAt(scene, strip, point) : no_part;
}

RECT StripType::TextPlace(const RECT& rect, const CUGCell& cell) const {
    const ControlScene scene(cell, rect);
    return rect_of(scene.shown(before_end(scene.box, StripWidth(cell))));
}

bool StripType::CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const {
    return CUGCellType::CutsText(dc, rect, cell);
}

SIZE StripType::BestSize(CDC& dc, const CUGCell& cell) const {
    const SIZE text = CellTextSize(dc, cell.GetText());
    return {text.cx + StripWidth(cell), text.cy};
}

}  // namespace corvanes
