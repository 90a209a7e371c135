#include "platform/host/view/text_drawer.h"

#include <algorithm>
#include <cmath>

#include "platform/host/view/text_metrics.h"
#include "platform/host/view/text_styles.h"

namespace host {

namespace {

constexpr int em = 256;  // of every font, in its own units: large enough that advances keep their proportions

bool is_right_to_left(wchar_t character) {
    return character >= 0x590 && character < 0x900;  // Hebrew, Arabic and their neighbours
}

/// A line runs from the right when its first letter does.
bool runs_from_right(const std::wstring& text) {
    const auto letter =
        std::find_if(text.begin(), text.end(), [](wchar_t c) { return is_right_to_left(c) || IsCharAlphaW(c) != 0; });
    return letter != text.end() && is_right_to_left(*letter);
}

COLORREF gdi_colour(uint32_t colour) {
    return RGB(colour >> 16 & 0xFF, colour >> 8 & 0xFF, colour & 0xFF);
}

UINT alignment(TextItem::Anchor anchor) {
    switch (anchor) {
        case TextItem::Anchor::centre:
            return TA_BASELINE | TA_CENTER;
        case TextItem::Anchor::right:
            return TA_BASELINE | TA_RIGHT;
        default:
            return TA_BASELINE | TA_LEFT;
    }
}

/// From font units (y down, `unit` of them to the height of a capital) to pixels.
XFORM world_transform(const Affine2& to_pixels, double unit) {
    XFORM transform;
    transform.eM11 = static_cast<FLOAT>(to_pixels.x.x / unit);
    transform.eM12 = static_cast<FLOAT>(to_pixels.x.y / unit);
    transform.eM21 = static_cast<FLOAT>(-to_pixels.y.x / unit);
    transform.eM22 = static_cast<FLOAT>(-to_pixels.y.y / unit);
    transform.eDx = static_cast<FLOAT>(to_pixels.origin.x);
    transform.eDy = static_cast<FLOAT>(to_pixels.origin.y);
    return transform;
}

/// The natural width of a line in the font that is selected, in heights of its capitals.
double width(HDC context, const std::wstring& text, double capitals) {
    SIZE size{};
    GetTextExtentPoint32W(context, text.c_str(), static_cast<int>(text.size()), &size);
    return size.cx / capitals;
}

void reset_transform(HDC context) {
    ModifyWorldTransform(context, nullptr, MWT_IDENTITY);
}

}  // namespace

HFONT TextDrawer::font(const FontFace& face) {
    GdiObject& font = fonts_[key(face)];
    if (!font) {
        font.reset(CreateFontW(-em, 0, 0, 0, face.bold ? FW_BOLD : FW_NORMAL, face.italic, FALSE, FALSE,
                               DEFAULT_CHARSET, OUT_TT_PRECIS, CLIP_DEFAULT_PRECIS, ANTIALIASED_QUALITY,
                               DEFAULT_PITCH | FF_SWISS, face.family.c_str()));
    }
    return static_cast<HFONT>(font.get());
}

const TextDrawer::Proportions& TextDrawer::proportions(HDC context, const FontFace& face) {
    const auto known = proportions_.find(key(face));
    if (known != proportions_.end()) {
        return known->second;
    }
    Proportions found;
    SelectObject(context, font(face));
    GLYPHMETRICS glyph{};
    const MAT2 upright = {{0, 1}, {0, 0}, {0, 0}, {0, 1}};
    if (GetGlyphOutlineW(context, L'H', GGO_METRICS, &glyph, 0, nullptr, &upright) != GDI_ERROR &&
        glyph.gmptGlyphOrigin.y > 0) {
        found.capitals = glyph.gmptGlyphOrigin.y;
    }
    const std::wstring sample = L"The quick brown fox jumps over the lazy dog 0123456789";
    if (face.family == TextStyles::usual_family) {
        found.narrowing = std::min(1.0, estimated_width(sample) / width(context, sample, found.capitals));
    }
    return proportions_[key(face)] = found;
}

void TextDrawer::draw_one(HDC context, const PlacedText& text, const FontFace& face) {
    const TextItem& item = *text.item;
    reset_transform(context);
    Affine2 to_pixels = text.to_pixels;
    const Proportions& own = proportions(context, face);
    SelectObject(context, font(face));
    if (item.fit_width > 0) {
        const double natural = width(context, item.text, own.capitals);
        to_pixels.x = to_pixels.x * (natural > 0 ? item.fit_width / natural : 1);
    } else {
        to_pixels.x = to_pixels.x * own.narrowing;
    }
    const XFORM transform = world_transform(to_pixels, own.capitals);
    if (SetWorldTransform(context, &transform) == 0) {
        return;  // seen from the side: nothing to draw
    }
    SetTextColor(context, gdi_colour(text.colour));
    SetTextAlign(context, alignment(item.anchor));
    ExtTextOutW(context, 0, 0, runs_from_right(item.text) ? ETO_RTLREADING : 0, nullptr, item.text.c_str(),
                static_cast<UINT>(item.text.size()), nullptr);
}

void TextDrawer::draw(HDC context, const std::vector<PlacedText>& texts, const std::vector<FontFace>& fonts) {
    const SavedContext saved(context);
    SetGraphicsMode(context, GM_ADVANCED);
    SetBkMode(context, TRANSPARENT);
    for (const PlacedText& text : texts) {
        draw_one(context, text, fonts[text.item->font]);
    }
}

}  // namespace host
