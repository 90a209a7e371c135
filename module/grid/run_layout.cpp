#include "grid/run_layout.h"

#include <algorithm>

#include "bidi/char_widths.h"
#include "bidi/reordering.h"
#include "grid/cell_text.h"
#include "grid/control_drawing.h"

namespace corvanes {

namespace {

constexpr int points_per_inch = 72;

LOGFONTW styled(LOGFONTW font, const RunStyle& style, int pixels_per_inch) {
    font.lfWeight = style.bold ? FW_BOLD : font.lfWeight;
    font.lfItalic = style.italic ? TRUE : font.lfItalic;
    font.lfUnderline = style.underline ? TRUE : font.lfUnderline;
    font.lfStrikeOut = style.strike_out ? TRUE : font.lfStrikeOut;
    if (style.points > 0) {
        font.lfHeight = -::MulDiv(style.points, pixels_per_inch, points_per_inch);
        font.lfWidth = 0;
    }
    if (!style.font.empty()) {
        const std::size_t length = std::min<std::size_t>(style.font.size(), LF_FACESIZE - 1);
        *std::copy_n(style.font.begin(), length, font.lfFaceName) = L'\0';
    }
    return font;
}

}  // namespace

RunLayout::RunLayout(CDC& dc, std::wstring_view text, std::wstring_view label)
    : runs_(runs_from_label(label, text.size())) {
    make_fonts(dc);
    for (std::size_t start = 0; start <= text.size() && !text.empty();) {
        const std::size_t end = std::min(text.find(L'\n', start), text.size());
        add_line(dc, text, start, end - start);
        start = end + 1;
    }
}

void RunLayout::make_fonts(CDC& dc) {
    LOGFONTW base{};
    ::GetObjectW(::GetCurrentObject(dc.m_hDC, OBJ_FONT), sizeof base, &base);
    for (const TextRun& run : runs_) {
        const LOGFONTW font = styled(base, run.style, dc.GetDeviceCaps(LOGPIXELSY));
        fonts_.emplace_back().CreateFontIndirect(&font);
    }
}

std::size_t RunLayout::run_at(std::size_t character) const {
    const auto after = std::upper_bound(runs_.begin(), runs_.end(), character,
                                        [](std::size_t place, const TextRun& run) { return place < run.start; });
    return static_cast<std::size_t>(after - runs_.begin()) - 1;
}

void RunLayout::add_line(CDC& dc, std::wstring_view text, std::size_t start, std::size_t length) {
    Line& line = lines_.emplace_back();
    const std::wstring_view characters = text.substr(start, length);
    if (characters.empty()) {
        line.ascent = font_height(dc);
    } else if (contains_right_to_left(characters)) {
        add_right_to_left(dc, line, characters, start);
    } else {
        add_left_to_right(dc, line, characters, start);
    }
    size_.cx = std::max<LONG>(size_.cx, line.width);
    size_.cy += line.ascent + line.descent;
}

void RunLayout::add_piece(CDC& dc, Line& line, std::wstring text, std::size_t run) {
    const SelectedFont font(dc, fonts_[run]);
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc.m_hDC, &metrics);
    line.ascent = std::max<int>(line.ascent, metrics.tmAscent);
    line.descent = std::max<int>(line.descent, metrics.tmDescent);
    const int right = line.width + text_width(dc, text);
    line.pieces.push_back({.text = std::move(text), .run = run, .box = {line.width, 0, right, 0}, .baseline = 0});
    line.width = right;
}

void RunLayout::add_left_to_right(CDC& dc, Line& line, std::wstring_view text, std::size_t start) {
    for (std::size_t run = run_at(start); run < runs_.size() && runs_[run].start < start + text.size(); ++run) {
        const std::size_t first = std::max(runs_[run].start, start);
        const std::size_t last = std::min(runs_[run].start + runs_[run].length, start + text.size());
        add_piece(dc, line, std::wstring(text.substr(first - start, last - first)), run);
    }
}

void RunLayout::add_right_to_left(CDC& dc, Line& line, std::wstring_view text, std::size_t start) {
    std::wstring visual(text.size() + 1, L'\0');
    std::vector<std::uint32_t> typed(text.size() + 1);
    if (LogicalToVisual(text.data(), text.size(), visual.data(), typed.data(), 0) == 0) {
        return add_left_to_right(dc, line, text, start);
    }
    visual.pop_back();
    // The painted order begins at the right edge.
    for (std::size_t index = visual.size(); index-- > 0;) {
        if (std::wstring glyph = painted_glyph(visual, index); !glyph.empty()) {
            add_piece(dc, line, std::move(glyph), run_at(start + typed[index]));
        }
    }
}

std::vector<RunPiece> RunLayout::place(const Box& box, bool from_right) const {
    std::vector<RunPiece> placed;
    int top = box.top + std::max(0, (box.height() - static_cast<int>(size_.cy)) / 2);
    for (const Line& line : lines_) {
        const int left = from_right ? box.right - line.width : box.left;
        const int bottom = top + line.ascent + line.descent;
        for (const RunPiece& piece : line.pieces) {
            placed.push_back(piece);
            placed.back().box = {left + piece.box.left, top, left + piece.box.right, bottom};
            placed.back().baseline = top + line.ascent;
        }
        top = bottom;
    }
    return placed;
}

}  // namespace corvanes
