#include "grid/multi_font_type.h"

#include <algorithm>

#include "grid/run_layout.h"

using namespace corvanes;

namespace {

Box text_box(const ControlScene& scene) {
    return deflated(scene.box, cell_text_margin, 0);
}

}  // namespace

void CUGMultiFontType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    const RunLayout layout(dc, scene.text(), scene.label());
    const RECT clip = rect_of(text_box(scene));
    const bool own_colors = !scene.disabled && look.background == ::GetSysColor(COLOR_WINDOW);
    dc.SetBkMode(TRANSPARENT);
    dc.SetTextAlign(TA_LEFT | TA_BASELINE);
    for (const RunPiece& piece : layout.place(text_box(scene), scene.text_at_right)) {
        if (piece.box.right <= clip.left || piece.box.left >= clip.right) {
            continue;
        }
        const SelectedFont font(dc, layout.font(piece.run));
        const auto& color = layout.runs()[piece.run].style.color;
        dc.SetTextColor(own_colors ? color.value_or(look.text) : look.text);
        ::ExtTextOutW(dc.m_hDC, piece.box.left, piece.baseline, ETO_CLIPPED, &clip, piece.text.data(),
                      static_cast<UINT>(piece.text.size()), nullptr);
    }
}

bool CUGMultiFontType::CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const {
    const ControlScene scene(cell, rect);
    return RunLayout(dc, scene.text(), scene.label()).size().cx > text_box(scene).width();
}

SIZE CUGMultiFontType::BestSize(CDC& dc, const CUGCell& cell) const {
    const ControlScene scene(cell, RECT{});
    const SIZE text = RunLayout(dc, scene.text(), scene.label()).size();
    return {text.cx + 2 * cell_text_margin, std::max<LONG>(text.cy, font_height(dc))};
}

// Runs are laid out in the window's own coordinates, never mirrored, so the layout's point is turned back into the
// window's.
int CUGMultiFontType::PartAt(CDC& dc, const ControlScene& scene, POINT point) const {
    const POINT in_window = scene.laid_out(point);
    const RunLayout layout(dc, scene.text(), scene.label());
    for (const RunPiece& piece : layout.place(text_box(scene), scene.text_at_right)) {
        if (holds(piece.box, static_cast<int>(in_window.x), static_cast<int>(in_window.y))) {
            return static_cast<int>(piece.run) + first_part;
        }
    }
    return no_part;
}

void CUGMultiFontType::Act(const Target& target, int part) {
    const std::wstring text = target.scene.text();
    if (part < first_part) {
        return Notify(target.grid, target.place, -1, text);
    }
    const TextRun run = runs_from_label(target.scene.label(), text.size())[static_cast<std::size_t>(part - first_part)];
    Notify(target.grid, target.place, part - first_part, text.substr(run.start, run.length));
}
