#include "grid/control_type.h"

#include <cwchar>

#include "bidi/draw_bidi_text.h"
#include "bidi/reordering.h"
#include "grid/cell_grid.h"
#include "grid/pixel_color.h"

namespace corvanes {

namespace {

bool goes_right_to_left(const CUGCell& cell) {
    const auto holds_hebrew = [](const wchar_t* text) { return text != nullptr && contains_right_to_left(text); };
    return (cell.GetCellTypeOptions() & control_right_to_left) != 0 || holds_hebrew(cell.GetText()) ||
           holds_hebrew(cell.GetLabelText());
}

bool key_held(int key) {
    return ::GetKeyState(key) < 0;
}

CUGCell cell_at(CellGrid& grid, const CellPlace& place) {
    CUGCell cell;
    grid.GetCell(place.column, place.row, &cell);
    return cell;
}

}  // namespace

ControlScene::ControlScene(const CUGCell& of, const RECT& rect, bool aligned_right)
    : cell(of),
      box(layout_rect(rect)),
      right_to_left(goes_right_to_left(of)),
      text_at_right(aligned_right || right_to_left),
      disabled((of.GetCellTypeOptions() & control_disabled) != 0) {}

CellScene::CellScene(CellGrid& grid, const CellPlace& place)
    : cell(cell_at(grid, place)), scene(cell, place.rect, grid.state().columns.aligned_right(place.column)) {}

POINT ControlScene::laid_out(POINT point) const {
    return {right_to_left ? mirrored_x(static_cast<int>(point.x), box) : point.x, point.y};
}

void ControlType::OnDraw(CDC& dc, const RECT& rect, const CUGCell& cell, const CellLook& look) {
    const ControlScene scene(cell, rect, look.align_right);
    CellLook own = look;
    own.align_right = scene.text_at_right;
    if (scene.disabled) {
        own.text = mixed(look.text, look.background);
    }
    const SavedDrawing saved(dc);
    ::IntersectClipRect(dc.m_hDC, rect.left, rect.top, rect.right, rect.bottom);
    dc.FillSolidRect(&rect, look.background);
    Draw(dc, scene, own);
}

bool ControlType::TextAtRight(const CUGCell& cell) const {
    return goes_right_to_left(cell);
}

int ControlType::PartUnder(const Target& target, POINT point) const {
    const POINT laid_out = target.scene.laid_out(point);
    if (!holds(target.scene.box, static_cast<int>(laid_out.x), static_cast<int>(laid_out.y))) {
        return no_part;
    }
    CClientDC dc(&target.grid);
    const SelectedFont font(dc, target.grid.GetGridFont());
    return PartAt(dc, target.scene, laid_out);
}

bool ControlType::OnLeftClick(CellGrid& grid, const CellPlace& place, int updn, POINT point) {
    const CellScene at(grid, place);
    const Target target{grid, place, at.scene};
    const bool acts = HoldsParts() ? updn == 1 : updn == 0 && !grid.IsEditing();
    const int part = acts && !at.scene.disabled ? PartUnder(target, point) : no_part;
    if (part == no_part) {
        return false;
    }
    HoldsParts() ? OnPress(target, part, point) : Act(target, part);
    return true;
}

void ControlType::OnPress(const Target& target, int part, POINT) {
    target.grid.HoldCell({.type = this, .column = target.place.column, .row = target.place.row, .part = part});
}

void ControlType::OnDrag(CellGrid& grid, const CellPlace& place, POINT point) {
    const CellScene at(grid, place);
    CellHold& hold = *grid.HeldCell();
    const bool over = PartUnder({grid, place, at.scene}, point) == hold.part;
    if (over != hold.over) {
        hold.over = over;
        grid.RedrawCell(place.column, place.row);
    }
}

void ControlType::OnRelease(CellGrid& grid, const CellPlace& place, const CellHold& hold) {
    if (hold.over) {
        const CellScene at(grid, place);
        Act({grid, place, at.scene}, hold.part);
    }
}

bool ControlType::OnKeyDown(CellGrid& grid, const CellPlace& place, UINT key) {
    const CellScene at(grid, place);
    const Target target{grid, place, at.scene};
    const int part = KeyPart(at.scene);
    if (at.scene.disabled) {
        return false;
    }
    if (IsOpenKey(key) && part != no_part) {
        Act(target, part);
        return true;
    }
    if (key_held(VK_CONTROL) || key_held(VK_MENU)) {
        return false;
    }
    if (key == VK_SPACE && TakesSpace() && part != no_part) {
        grid.HoldCell({.type = this, .column = place.column, .row = place.row, .part = part, .by_key = true});
        return true;
    }
    return OnControlKey(target, key);
}

// A space that was not typed on the keyboard acts at once; any other acts when its key is released.
bool ControlType::OnCharDown(CellGrid& grid, const CellPlace& place, UINT character) {
    const CellScene at(grid, place);
    const int part = KeyPart(at.scene);
    if (character != L' ' || !TakesSpace() || at.scene.disabled || part == no_part) {
        return false;
    }
    if (grid.HeldCell() == nullptr) {
        Act({grid, place, at.scene}, part);
    }
    return true;
}

bool ControlType::OnWheel(CellGrid& grid, const CellPlace& place, int notches) {
    const CellScene at(grid, place);
    return !at.scene.disabled && OnControlWheel({grid, place, at.scene}, notches);
}

void ControlType::Act(const Target& target, int part) {
    Notify(target.grid, target.place, part, target.scene.text());
}

void ControlType::Notify(CellGrid& grid, const CellPlace& place, int part, const std::wstring& value) const {
    grid.OnGridCellTypeNotify(place.column, place.row, notice(), part, value.c_str());
}

bool ControlType::ChangeText(const Target& target, const std::wstring& text, int part) const {
    // This is a copy, because storing the text may remove the cell.
    const CellPlace place = target.place;
    CellGrid& grid = target.grid;
    if (text == target.scene.text() || !grid.OfferCellText(place.column, place.row, text.c_str())) {
        return false;
    }
    Notify(grid, place, part, text);
    return true;
}

}  // namespace corvanes
