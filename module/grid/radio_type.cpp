#include "grid/radio_type.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "grid/cell_grid.h"
#include "grid/label_fields.h"

using namespace corvanes;

namespace {

constexpr int circle = 13;
constexpr int cell_margin = 3;
constexpr int circle_strip = circle + 1;
constexpr int column_gap = 8;
constexpr int line_margin = 1;

std::vector<std::wstring_view> lines_of(const ControlScene& scene) {
    std::vector<std::wstring_view> lines;
    for (std::wstring_view rest = scene.label(); !rest.empty();) {
        lines.push_back(take_part(rest, L"\n"));
    }
    return lines;
}

int chosen_in(const std::vector<std::wstring_view>& lines, std::wstring_view text) {
    const auto found = std::find(lines.begin(), lines.end(), text);
    return found != lines.end() ? static_cast<int>(found - lines.begin()) : -1;
}

int line_height(CDC& dc) {
    return std::max(circle, font_height(dc)) + line_margin;
}

int line_width(CDC& dc, std::wstring_view line) {
    return circle_strip + text_width(dc, line) + 2 * cell_text_margin + column_gap;
}

std::vector<Box> boxes_of(CDC& dc, const ControlScene& scene, const std::vector<std::wstring_view>& lines) {
    const Box inside = deflated(scene.box, cell_margin, 0);
    return choice_boxes(inside, static_cast<int>(lines.size()), line_height(dc),
                        [&](int line) { return line_width(dc, lines[static_cast<std::size_t>(line)]); });
}

}  // namespace

void CUGRadioType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    const std::vector<std::wstring_view> lines = lines_of(scene);
    const int chosen = chosen_in(lines, scene.text());
    const std::vector<Box> boxes = boxes_of(dc, scene, lines);
    for (std::size_t line = 0; line < boxes.size(); ++line) {
        const int number = static_cast<int>(line);
        const Box mark{boxes[line].left, boxes[line].top, std::min(boxes[line].left + circle, boxes[line].right),
                       boxes[line].bottom};
        RECT around = rect_of(scene.shown(centered(mark, circle, circle)));
        const UINT state = (number == chosen ? DFCS_CHECKED : 0U) | (scene.disabled ? DFCS_INACTIVE : 0U) |
                           (look.pressed_part == number + first_part ? DFCS_PUSHED : 0U);
        if (::IsRectEmpty(&around) == 0) {
            // Transparent: around the circle the cell keeps its colour.
            ::DrawFrameControl(dc.m_hDC, &around, DFC_BUTTON, DFCS_BUTTONRADIO | DFCS_TRANSPARENT | state);
        }
        Box text = boxes[line];
        text.left = std::min(text.left + circle_strip, text.right);
        DrawTextOver(dc, rect_of(scene.shown(text)), std::wstring(lines[line]).c_str(), look);
    }
}

SIZE CUGRadioType::BestSize(CDC& dc, const CUGCell& cell) const {
    const ControlScene scene(cell, RECT{});
    SIZE best{2 * cell_margin, line_height(dc)};
    const std::vector<std::wstring_view> lines = lines_of(scene);
    for (const std::wstring_view line : lines) {
        best.cx = std::max<LONG>(best.cx, line_width(dc, line) - column_gap + 2 * cell_margin);
    }
    best.cy *= std::max<LONG>(1, static_cast<LONG>(lines.size()));
    return best;
}

int CUGRadioType::PartAt(CDC& dc, const ControlScene& scene, POINT point) const {
    const std::vector<Box> boxes = boxes_of(dc, scene, lines_of(scene));
    const auto found = std::find_if(boxes.begin(), boxes.end(), [point](const Box& box) {
        return holds(box, static_cast<int>(point.x), static_cast<int>(point.y));
    });
    return found != boxes.end() ? static_cast<int>(found - boxes.begin()) + first_part : no_part;
}

// The space bar chooses the first line when none is chosen.
int CUGRadioType::KeyPart(const ControlScene& scene) const {
    const std::vector<std::wstring_view> lines = lines_of(scene);
    return lines.empty() ? no_part : std::max(0, chosen_in(lines, scene.text())) + first_part;
}

void CUGRadioType::Act(const Target& target, int part) {
    const std::vector<std::wstring_view> lines = lines_of(target.scene);
    if (part >= first_part && static_cast<std::size_t>(part - first_part) < lines.size()) {
        const int line = part - first_part;
        ChangeText(target, std::wstring(lines[static_cast<std::size_t>(line)]), line);
    }
}

bool CUGRadioType::OnControlKey(const Target& target, UINT key) {
    const int columns = key == VK_RIGHT ? 1 : key == VK_LEFT ? -1 : 0;
    const int rows = key == VK_DOWN ? 1 : key == VK_UP ? -1 : 0;
    const std::vector<std::wstring_view> lines = lines_of(target.scene);
    if ((columns == 0 && rows == 0) || lines.size() < 2) {
        return false;
    }
    CClientDC dc(&target.grid);
    const SelectedFont font(dc, target.grid.GetGridFont());
    const int count = static_cast<int>(lines.size());
    // Not the scene's height, which is 0 while the cell is out of sight.
    const int height = target.grid.state().rows.height(target.place.row) - 1;
    const ChoiceGrid grid = choice_grid(count, height, line_height(dc));
    if (columns != 0 ? grid.columns == 1 : grid.rows == 1) {
        return false;
    }
    const int now = chosen_in(lines, target.scene.text());
    Act(target, next_choice(grid, count, now, target.scene.right_to_left ? -columns : columns, rows) + first_part);
    return true;
}
