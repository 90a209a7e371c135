#include "grid/spin_button_type.h"

#include "grid/cell_grid.h"
#include "grid/value_range.h"

using namespace corvanes;

namespace {

constexpr int strip_width = 17;
constexpr int up_part = 1;
constexpr int down_part = 2;

}  // namespace

int CUGSpinButtonType::StripWidth(const CUGCell&) const {
    return strip_width;
}

void CUGSpinButtonType::DrawStrip(CDC& dc, const ControlScene& scene, const Box& strip, const CellLook& look) const {
    const SpinBoxes boxes = spin_boxes(deflated(strip, 1, 1));
    const COLORREF color = button_text_color(scene.disabled);
    draw_arrow(dc, draw_button_face(dc, boxes.up, look.pressed_part == up_part, scene.disabled), arrow_up, color);
    draw_arrow(dc, draw_button_face(dc, boxes.down, look.pressed_part == down_part, scene.disabled), arrow_down, color);
}

int CUGSpinButtonType::StripPartAt(const ControlScene&, const Box& strip, POINT point) const {
    return point.y < spin_boxes(strip).down.top ? up_part : down_part;
}

void CUGSpinButtonType::Step(const Target& target, int steps) const {
    const ControlScene& scene = target.scene;
    ChangeText(target, stepped_text(scene.label(), scene.text(), steps), steps > 0 ? up_part : down_part);
}

void CUGSpinButtonType::OnPress(const Target& target, int part, POINT point) {
    ControlType::OnPress(target, part, point);
    Step(target, part == up_part ? 1 : -1);
}

bool CUGSpinButtonType::OnHoldOn(CellGrid& grid, const CellPlace& place) {
    const CellHold& hold = *grid.HeldCell();
    if (hold.over) {
        const CellScene at(grid, place);
        Step({grid, place, at.scene}, hold.part == up_part ? 1 : -1);
    }
    return grid.HeldCell() != nullptr;
}

bool CUGSpinButtonType::OnControlKey(const Target& target, UINT key) {
    if (key != VK_UP && key != VK_DOWN) {
        return false;
    }
    Step(target, key == VK_UP ? 1 : -1);
    return true;
}

bool CUGSpinButtonType::OnControlWheel(const Target& target, int notches) {
    if (notches != 0) {
        Step(target, notches);
    }
    return true;
}
