#include "grid/auto_font_type.h"

#include <algorithm>

#include "grid/fitted_text.h"

using namespace corvanes;

namespace {

// The height of a line in the smallest size, in pixels.
constexpr int least_height = 6;

// The font that `dc` has selected, with lines of this height.
void make_font(CFont& font, CDC& dc, int height) {
    LOGFONTW description{};
    ::GetObjectW(::GetCurrentObject(dc.m_hDC, OBJ_FONT), sizeof description, &description);
    description.lfHeight = height;
    description.lfWidth = 0;
    font.CreateFontIndirect(&description);
}

bool fits(CDC& dc, const ControlScene& scene, int height) {
    CFont font;
    make_font(font, dc, height);
    const SelectedFont selected(dc, font);
    const SIZE text = CellTextSize(dc, scene.text());
    return text.cx <= scene.box.width() && text.cy <= scene.box.height();
}

}  // namespace

void CUGAutoFontType::Draw(CDC& dc, const ControlScene& scene, const CellLook& look) const {
    CFont font;
    const int most = std::max(least_height, scene.box.height());
    make_font(font, dc, largest_fitting(least_height, most, [&](int height) { return fits(dc, scene, height); }));
    const SelectedFont selected(dc, font);
    DrawTextOver(dc, rect_of(scene.box), scene.text(), look);
}

bool CUGAutoFontType::CutsText(CDC& dc, const RECT& rect, const CUGCell& cell) const {
    return !fits(dc, ControlScene(cell, rect), least_height);
}

SIZE CUGAutoFontType::BestSize(CDC& dc, const CUGCell& cell) const {
    return CellTextSize(dc, cell.GetText());
}

int CUGAutoFontType::PartAt(CDC&, const ControlScene&, POINT) const {
    return first_part;
}
