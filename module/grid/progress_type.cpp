#include "grid/progress_type.h"

#include <algorithm>
#include <cmath>

#include "base/number_text.h"
#include "grid/pixel_color.h"
#include "grid/value_range.h"

using namespace corvanes;

namespace {

// The margin around the bar, in pixels, where a selected cell shows its colour.
constexpr int bar_margin = 2;

std::wstring shown_text(const ControlScene& scene) {
    std::wstring text = scene.text();
    if (text.empty() || scene.has_option(progress_hides_number)) {
        return L"";
    }
    return text.find(L'%') == text.npos ? text + L'%' : text;
}

}  // namespace

void CUGProgressType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    const Box inside = draw_well(dc, deflated(scene.box, bar_margin, bar_margin));
    const double fraction = fraction_of(ValueRange(), base::number_from_text(scene.text()));
    Box bar = inside;
    bar.right = bar.left + static_cast<int>(std::lround(fraction * inside.width()));
    const Box rest{bar.right, inside.top, inside.right, inside.bottom};
    const COLORREF field = ::GetSysColor(COLOR_WINDOW);
    const COLORREF full = ::GetSysColor(COLOR_HIGHLIGHT);
    CellLook centered_look = look;
    centered_look.centered = true;
    draw_parts_with_text(dc,
                         {{scene.shown(bar), scene.disabled ? mixed(::GetSysColor(COLOR_GRAYTEXT), field) : full},
                          {scene.shown(rest), field}},
                         inside, shown_text(scene).c_str(), centered_look);
}

SIZE CUGProgressType::BestSize(CDC& dc, const CUGCell& cell) const {
    const ControlScene scene(cell, RECT{});
    const SIZE text = CellTextSize(dc, shown_text(scene).c_str());
    const SIZE full = CellTextSize(dc, L"100%");
    constexpr int frame = 2 * (bar_margin + 1);
    return {std::max(text.cx, full.cx) + frame, text.cy + frame};
}

int CUGProgressType::PartAt(CDC&, const ControlScene&, POINT) const {
    return first_part;
}
