#include "grid/advanced_progress_type.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "grid/gauge_scale.h"
#include "grid/label_fields.h"

using namespace corvanes;

namespace {

// The margin around the gauge, in pixels, where a selected cell shows its colour.
constexpr int gauge_margin = 2;
constexpr int best_width = 120;
constexpr int tick_space = 5;
// Ticks are no closer than this, in pixels.
constexpr int least_tick_distance = 3;

// The settings of a gauge, as the cell's label gives them.
struct Gauge {
    explicit Gauge(const ControlScene& scene)
        : range(range_from_label(scene.label())),
          bands(bands_from_label(scene.label(), range)),
          ticks(number_field(scene.label(), L"ticks").value_or(0)),
          numbers(number_field(scene.label(), L"labels").value_or(0)),
          number_decimals(std::max(range.decimals, decimals_in(label_field(scene.label(), L"labels").value_or(L"")))) {}

    GaugeBoxes boxes(CDC& dc, const ControlScene& scene) const {
        return gauge_boxes(deflated(scene.box, gauge_margin, gauge_margin), ticks > 0,
                           numbers > 0 ? font_height(dc) : 0);
    }

    ValueRange range;
    std::vector<GaugeBand> bands;
    double ticks;
    double numbers;
    int number_decimals;
};

int place_of(const Gauge& gauge, const Box& box, double value) {
    return box.left + static_cast<int>(std::lround(fraction_of(gauge.range, value) * box.width()));
}

// Draws the bands in full colours up to the value and in pale ones beyond it.
std::vector<ColoredPart> colored_parts(const Gauge& gauge, const ControlScene& scene, const Box& bar) {
    const COLORREF field = ::GetSysColor(COLOR_WINDOW);
    const int end_of_value = place_of(gauge, bar, base::number_from_text(scene.text()));
    std::vector<ColoredPart> parts;
    int left = bar.left;
    const auto add = [&](int right, COLORREF color) {
        right = std::max(left, right);
        const int split = std::clamp(end_of_value, left, right);
        parts.push_back(
            {scene.shown({left, bar.top, split, bar.bottom}), scene.disabled ? mixed(color, field) : color});
        const COLORREF pale = mixed(mixed(color, field), field);
        parts.push_back({scene.shown({split, bar.top, right, bar.bottom}), gauge.bands.empty() ? field : pale});
        left = right;
    };
    for (const GaugeBand& band : gauge.bands) {
        add(place_of(gauge, bar, band.end), band.color);
    }
    add(bar.right, gauge.bands.empty() ? ::GetSysColor(COLOR_HIGHLIGHT) : gauge.bands.back().color);
    return parts;
}

void draw_ticks(CDC& dc, const Gauge& gauge, const ControlScene& scene, const Box& ticks, COLORREF color) {
    for (const double mark : scale_marks(gauge.range, gauge.ticks, ticks.width() / least_tick_distance)) {
        const int x = std::min(place_of(gauge, ticks, mark), ticks.right - 1);
        const RECT line = rect_of(scene.shown({x, ticks.top, x + 1, ticks.bottom}));
        dc.FillSolidRect(&line, color);
    }
}

// Draws each number below its mark, within the cell. A number that would touch the one before it is left out.
void draw_numbers(CDC& dc, const Gauge& gauge, const ControlScene& scene, const Box& numbers, const CellLook& look) {
    int free_from = numbers.left;
    for (const double mark : scale_marks(gauge.range, gauge.numbers, numbers.width() / least_tick_distance)) {
        const std::wstring text = number_text(mark, gauge.number_decimals);
        const int width = text_width(dc, text);
        const int last_left = std::max(numbers.left, numbers.right - width);
        const int left = std::clamp(place_of(gauge, numbers, mark) - width / 2, numbers.left, last_left);
        if (left >= free_from && width <= numbers.width()) {
            const Box box{left - cell_text_margin, numbers.top, left + width + cell_text_margin, numbers.bottom};
            DrawTextOver(dc, rect_of(scene.shown(box)), text.c_str(), look);
            free_from = left + width + cell_text_margin;
        }
    }
}

}  // namespace

void CUGAdvProgressType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    const Gauge gauge(scene);
    const GaugeBoxes boxes = gauge.boxes(dc, scene);
    const Box bar = draw_well(dc, boxes.bar);
    CellLook centered_look = look;
    centered_look.centered = true;
    draw_parts_with_text(dc, colored_parts(gauge, scene, bar), bar,
                         scene.has_option(advanced_progress_hides_number) ? L"" : scene.text(), centered_look);
    if (boxes.ticks.height() > 0) {
        draw_ticks(dc, gauge, scene, deflated(boxes.ticks, 1, 0), look.text);
    }
    if (boxes.numbers.height() > 0) {
        draw_numbers(dc, gauge, scene, deflated(boxes.numbers, 1, 0), look);
    }
}

SIZE CUGAdvProgressType::BestSize(CDC& dc, const CUGCell& cell) const {
    const ControlScene scene(cell, RECT{});
    const Gauge gauge(scene);
    constexpr int frame = 2 * (gauge_margin + 1);
    const SIZE text = CellTextSize(dc, scene.text());
    const LONG below = (gauge.ticks > 0 ? tick_space : 0) + (gauge.numbers > 0 ? font_height(dc) : 0);
    return {std::max<LONG>(best_width, text.cx + frame), text.cy + frame + below};
}

int CUGAdvProgressType::PartAt(CDC&, const ControlScene&, POINT) const {
    return first_part;
}

void CUGAdvProgressType::Act(const Target& target, int) {
    const Gauge gauge(target.scene);
    const double value = base::number_from_text(target.scene.text());
    const int band = gauge.bands.empty() ? -1 : static_cast<int>(band_at(gauge.bands, value));
    Notify(target.grid, target.place, band, target.scene.text());
}
