#include "grid/pie_chart_type.h"

#include <algorithm>

#include "grid/label_fields.h"
#include "grid/pixel_color.h"
#include "grid/value_range.h"

using namespace corvanes;

namespace {

constexpr int pie_margin = 2;
constexpr int best_pie = 32;

// The square of the pie: all of the cell, or its beginning where the text stands beside it.
Box pie_box(const ControlScene& scene) {
    Box square = scene.box;
    if (scene.has_option(pie_chart_shows_text)) {
        square.right = std::min(square.right, square.left + square.height());
    }
    return square;
}

int radius_in(const Box& square) {
    return std::max(0, (std::min(square.width(), square.height()) - 1) / 2 - pie_margin);
}

PixelPoint center_of(const Box& square) {
    return {square.left + (square.width() - 1) / 2, square.top + (square.height() - 1) / 2};
}

std::vector<PieSlice> slices_of(const ControlScene& scene) {
    const double whole = number_field(scene.label(), L"max").value_or(ValueRange().most);
    return pie_slices(numbers_in(scene.text()), whole);
}

std::vector<PixelColor> colors_of(const ControlScene& scene, std::size_t count) {
    std::wstring_view rest = label_field(scene.label(), L"colors").value_or(std::wstring_view());
    std::vector<PixelColor> colors;
    for (std::size_t number = 0; number < count; ++number) {
        const auto named = color_from_text(take_part(rest, L","));
        colors.push_back(named.value_or(palette_color(number)));
    }
    return colors;
}

// Fills a slice with the selected brush and draws its edge with the selected pen.
void draw_slice(CDC& dc, const ControlScene& scene, PixelPoint center, int radius, const PieSlice& slice) {
    std::vector<POINT> corners;
    for (const PixelPoint& corner : slice_outline(center, radius, slice)) {
        corners.push_back({scene.right_to_left ? mirrored_x(corner.x, scene.box) : corner.x, corner.y});
    }
    dc.Polygon(corners.data(), static_cast<int>(corners.size()));
}

}  // namespace

void CUGPieChartType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    const Box square = pie_box(scene);
    const PixelPoint center = center_of(square);
    const int radius = radius_in(square);
    if (radius > 0) {
        ::SelectObject(dc.m_hDC, ::GetStockObject(DC_BRUSH));
        ::SelectObject(dc.m_hDC, ::GetStockObject(DC_PEN));
        ::SetDCPenColor(dc.m_hDC, ::GetSysColor(COLOR_BTNSHADOW));
        ::SetDCBrushColor(dc.m_hDC, ::GetSysColor(COLOR_WINDOW));
        draw_slice(dc, scene, center, radius, {0, 0, 1});
        const std::vector<PieSlice> slices = slices_of(scene);
        const std::vector<PixelColor> colors = colors_of(scene, slices.empty() ? 0 : slices.back().number + 1);
        for (const PieSlice& slice : slices) {
            const PixelColor color = colors[slice.number];
            ::SetDCBrushColor(dc.m_hDC, scene.disabled ? mixed(color, ::GetSysColor(COLOR_BTNFACE)) : color);
            draw_slice(dc, scene, center, radius, slice);
        }
    }
    if (scene.has_option(pie_chart_shows_text)) {
        DrawTextOver(dc, TextPlace(rect_of(scene.box), scene.cell), scene.text(), look);
    }
}

RECT CUGPieChartType::TextPlace(const RECT& rect, const CUGCell& cell) const {
    const ControlScene scene(cell, rect);
    Box beside = scene.box;
    if (scene.has_option(pie_chart_shows_text)) {
        beside.left = pie_box(scene).right;
    }
    return rect_of(scene.shown(beside));
}

SIZE CUGPieChartType::BestSize(CDC& dc, const CUGCell& cell) const {
    const ControlScene scene(cell, RECT{});
    if (!scene.has_option(pie_chart_shows_text)) {
        return {best_pie, best_pie};
    }
    const SIZE text = CellTextSize(dc, scene.text());
    const LONG height = std::max<LONG>(best_pie, text.cy);
    return {height + text.cx, height};
}

int CUGPieChartType::PartAt(CDC&, const ControlScene& scene, POINT point) const {
    const Box square = pie_box(scene);
    const PixelPoint center = center_of(square);
    const std::vector<PieSlice> slices = slices_of(scene);
    const auto slice = slice_at(slices, point.x - center.x, point.y - center.y, radius_in(square));
    return slice ? static_cast<int>(slices[*slice].number) + first_part : no_part;
}

void CUGPieChartType::Act(const Target& target, int part) {
    std::wstring value = target.scene.text();
    if (part >= first_part) {
        const double number = numbers_in(value)[static_cast<std::size_t>(part - first_part)];
        value = number_text(number, decimals_in(value));
    }
    Notify(target.grid, target.place, part >= first_part ? part - first_part : -1, value);
}
