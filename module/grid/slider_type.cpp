#include "grid/slider_type.h"

#include <algorithm>

#include "base/number_text.h"
#include "grid/cell_grid.h"
#include "grid/value_range.h"

using namespace corvanes;

namespace {

constexpr int best_groove = 80;
constexpr int best_height = 20;

// The width of the number's place, that of the longer limit; 0 when no number is shown.
int number_width(CDC& dc, const ControlScene& scene) {
    if (!scene.has_option(slider_shows_number)) {
        return 0;
    }
    const ValueRange range = range_from_label(scene.label());
    const auto width = [&](double value) { return text_width(dc, value_text(range, value, scene.text())); };
    return std::max(width(range.least), width(range.most)) + 2 * cell_text_margin;
}

double fraction_in(const ControlScene& scene) {
    return fraction_of(range_from_label(scene.label()), base::number_from_text(scene.text()));
}

}  // namespace

void CUGSliderType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    const int beside = number_width(dc, scene);
    const SliderBoxes boxes = slider_boxes(before_end(scene.box, beside), fraction_in(scene));
    RECT groove = rect_of(scene.shown(boxes.groove));
    ::DrawEdge(dc.m_hDC, &groove, EDGE_SUNKEN, BF_RECT | BF_MIDDLE);
    draw_button_face(dc, scene.shown(boxes.thumb), look.pressed_part != 0, scene.disabled);
    if (beside > 0) {
        DrawTextOver(dc, rect_of(scene.shown(end_strip(scene.box, beside))), scene.text(), look);
    }
}

SIZE CUGSliderType::BestSize(CDC& dc, const CUGCell& cell) const {
    const ControlScene scene(cell, RECT{});
    return {best_groove + number_width(dc, scene), std::max(best_height, font_height(dc))};
}

int CUGSliderType::PartAt(CDC& dc, const ControlScene& scene, POINT point) const {
    const Box groove = before_end(scene.box, number_width(dc, scene));
    return holds(groove, static_cast<int>(point.x), static_cast<int>(point.y)) ? first_part : no_part;
}

// A press beside the thumb moves the thumb's middle there.
void CUGSliderType::OnPress(const Target& target, int part, POINT point) {
    CClientDC dc(&target.grid);
    const SelectedFont font(dc, target.grid.GetGridFont());
    const Box groove = before_end(target.scene.box, number_width(dc, target.scene));
    const Box thumb = slider_boxes(groove, fraction_in(target.scene)).thumb;
    const int x = static_cast<int>(target.scene.laid_out(point).x);
    const bool on_thumb = x >= thumb.left && x < thumb.right;
    ControlType::OnPress(target, part, point);
    target.grid.HeldCell()->grip = on_thumb ? x - thumb.left : thumb.width() / 2;
    if (!on_thumb) {
        OnDrag(target.grid, target.place, point);
    }
}

void CUGSliderType::OnDrag(CellGrid& grid, const CellPlace& place, POINT point) {
    if (::IsRectEmpty(&place.rect) != 0) {
        return;
    }
    const CellScene at(grid, place);
    const ControlScene& scene = at.scene;
    const ValueRange range = range_from_label(scene.label());
    CClientDC dc(&grid);
    const SelectedFont font(dc, grid.GetGridFont());
    const Box groove = before_end(scene.box, number_width(dc, scene));
    CellHold& hold = *grid.HeldCell();
    const int thumb_left = static_cast<int>(scene.laid_out(point).x) - hold.grip;
    const double value = value_at(range, slider_fraction(groove, thumb_left));
    const std::wstring text = value_text(range, value, scene.text());
    if (text != hold.text.value_or(scene.text())) {
        hold.text = text;
        grid.RedrawCell(place.column, place.row);
        grid.OnGridCellTypeNotify(place.column, place.row, notice_slider_moving, first_part, text.c_str());
    }
}

void CUGSliderType::OnRelease(CellGrid& grid, const CellPlace& place, const CellHold& hold) {
    if (hold.text) {
        const CellScene at(grid, place);
        ChangeText({grid, place, at.scene}, *hold.text, first_part);
    }
}

bool CUGSliderType::OnControlKey(const Target& target, UINT key) {
    const ValueRange range = range_from_label(target.scene.label());
    const int page = steps_a_page(range);
    const int right = target.scene.right_to_left ? -1 : 1;
    switch (key) {
        case VK_LEFT:
            return StepBy(target, -right);
        case VK_RIGHT:
            return StepBy(target, right);
        case VK_PRIOR:
            return StepBy(target, page);
        case VK_NEXT:
            return StepBy(target, -page);
        case VK_HOME:
        case VK_END:
            ChangeText(target, value_text(range, key == VK_HOME ? range.least : range.most, target.scene.text()),
                       first_part);
            return true;
        default:
            return false;
    }
}

bool CUGSliderType::OnControlWheel(const Target& target, int notches) {
    return notches == 0 || StepBy(target, notches);
}

bool CUGSliderType::StepBy(const Target& target, int steps) const {
    ChangeText(target, stepped_text(target.scene.label(), target.scene.text(), steps), first_part);
    return true;
}
