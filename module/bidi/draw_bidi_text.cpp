#include "bidi/draw_bidi_text.h"

#include <new>

#include "bidi/char_widths.h"
#include "bidi/reordering.h"

namespace corvanes {
namespace {

/// Saves what a device context has selected and set, and restores it at the end of a scope.
class SavedContext {
  public:
    explicit SavedContext(HDC dc) : dc_(dc), saved_(::SaveDC(dc)) {}
    ~SavedContext() { ::RestoreDC(dc_, saved_); }
    SavedContext(const SavedContext&) = delete;
    SavedContext& operator=(const SavedContext&) = delete;

  private:
    HDC dc_;
    int saved_;
};

int font_height(HDC dc) {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc, &metrics);
    return metrics.tmHeight;
}

/// Lays the text out and paints it. Returns nothing when it has no width or could not be reordered.
std::optional<TextLayout> draw(HDC dc, std::wstring text, const RECT& rect, unsigned alignment, bool left_to_right,
                               bool reorder) {
    if (reorder) {
        std::wstring visual(text.size() + 1, L'\0');
        if (LinesToVisual(text.data(), text.size(), visual.data(), nullptr, left_to_right ? 1 : 0) == 0) {
            return std::nullopt;
        }
        visual.pop_back();
        text = std::move(visual);
    }
    TextPositions positions(text.size() + 1);
    GetCharPositions(dc, text.data(), text.size(), positions.data());
    auto layout = lay_out_text(text, positions, layout_rect(rect), font_height(dc), alignment, left_to_right);
    if (layout) {
        paint_characters(dc, text, *layout);
    }
    return layout;
}

}  // namespace

LayoutRect layout_rect(const RECT& rect) {
    return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
            static_cast<int>(rect.bottom)};
}

void paint_characters(HDC dc, std::wstring_view text, const TextLayout& layout) {
    for (const PlacedCharacter& character : layout.characters) {
        const std::wstring glyph = painted_glyph(text, character.index);
        ::ExtTextOutW(dc, character.x, character.y, 0, nullptr, glyph.data(), static_cast<UINT>(glyph.size()), nullptr);
    }
}

int DrawBidiText(HDC dc, const wchar_t* text, const RECT& rect, int* line_count, int* longest_line, unsigned alignment,
                 int left_to_right, int reorder) {
    try {
        const std::optional<TextLayout> layout = draw(dc, text, rect, alignment, left_to_right != 0, reorder != 0);
        if (!layout) {
            return -1;
        }
        if (line_count != nullptr) {
            *line_count = layout->line_count;
        }
        if (longest_line != nullptr) {
            *longest_line = layout->longest_line;
        }
        return layout->line_count;
    } catch (const std::bad_alloc&) {
        return -1;
    }
}

void DrawRightToLeftLine(HDC dc, std::wstring_view line, const RECT& rect, const RECT& clip) {
    const SavedContext saved(dc);
    ::IntersectClipRect(dc, clip.left, clip.top, clip.right, clip.bottom);
    ::SetBkMode(dc, TRANSPARENT);
    DrawBidiText(dc, std::wstring(line).c_str(), rect, nullptr, nullptr, align_right | align_middle, 0, 1);
}

}  // namespace corvanes
