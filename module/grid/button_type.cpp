#include "grid/button_type.h"

using namespace corvanes;

namespace {

// Pixels around the face, where a selected cell shows its colour, and from the face's edge to the caption.
constexpr int face_margin = 2;
constexpr int caption_margin = 4;

}  // namespace

void CUGButtonType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    const Box face = deflated(scene.box, face_margin, face_margin);
    const Box caption = draw_button_face(dc, face, look.pressed_part != 0, scene.disabled);
    CellLook on_face = look;
    on_face.text = button_text_color(scene.disabled);
    on_face.centered = true;
    DrawTextOver(dc, rect_of(caption), scene.text(), on_face);
}

RECT CUGButtonType::TextPlace(const RECT& rect, const CUGCell& cell) const {
    return rect_of(deflated(ControlScene(cell, rect).box, caption_margin, caption_margin));
}

bool CUGButtonType::CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const {
    return CUGCellType::CutsText(dc, rect, cell);
}

SIZE CUGButtonType::BestSize(CDC& dc, const CUGCell& cell) const {
    const SIZE text = CellTextSize(dc, cell.GetText());
    return {text.cx + 2 * caption_margin, text.cy + 2 * caption_margin};
}

int CUGButtonType::PartAt(CDC&, const ControlScene&, POINT) const {
    return first_part;
}
