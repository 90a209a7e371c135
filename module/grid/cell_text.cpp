#include "grid/cell_text.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "bidi/draw_bidi_text.h"
#include "bidi/reordering.h"
#include "grid/fitted_text.h"

namespace corvanes {

namespace {

constexpr std::wstring_view ellipsis = L"\x2026";
constexpr std::wstring_view number_sign = L"#";

// For each character, the pixels from the line's start to the character's end.
std::vector<int> ends_of(CDC& dc, std::wstring_view line) {
    std::vector<int> ends(line.size());
    SIZE size{};
    ::GetTextExtentExPointW(dc.m_hDC, line.data(), static_cast<int>(line.size()), 0, nullptr, ends.data(), &size);
    return ends;
}

// Takes the first line off a text; false when there was none left.
bool take_line(std::wstring_view& rest, std::wstring_view& line) {
    if (rest.data() == nullptr) {
        return false;
    }
    const std::size_t end = std::min(rest.find(L'\n'), rest.size());
    line = rest.substr(0, end);
    rest = end == rest.size() ? std::wstring_view() : rest.substr(end + 1);
    return true;
}

// Paints the lines of one cell between its margins.
class LinePainter {
  public:
    LinePainter(CDC& dc, const RECT& cell, bool right_to_left, const CellLook& look, int height)
        : dc_(dc),
          inside_{cell.left + cell_text_margin, cell.top, cell.right - cell_text_margin, cell.bottom},
          right_to_left_(right_to_left),
          from_right_(right_to_left || look.align_right),
          centered_(look.centered),
          line_height_(height) {}

    FittedLine fit(std::wstring_view line) {
        ends_ = ends_of(dc_, line);
        const int width = inside_.right - inside_.left;
        if (line.empty() || ends_.back() <= width) {
            return {FittedLine::Shown::whole, line.size()};
        }
        return fit_line(line, ends_, {width, text_width(dc_, ellipsis), text_width(dc_, number_sign)});
    }

    void draw(std::wstring_view line, int top) {
        const FittedLine fitted = fit(line);
        if (fitted.shown == FittedLine::Shown::number_signs) {
            const std::wstring signs(fitted.length, number_sign.front());
            return place(signs, from_right_ ? inside_.right - text_width(dc_, signs) : inside_.left, top);
        }
        const bool cut = fitted.shown == FittedLine::Shown::beginning;
        const int width = fitted.length == 0 ? 0 : ends_[fitted.length - 1];
        const int whole_width = width + (cut ? text_width(dc_, ellipsis) : 0);
        const int indent = centered_ ? std::max<int>(0, (inside_.right - inside_.left - whole_width) / 2) : 0;
        if (right_to_left_) {
            const RECT row{inside_.left, top, inside_.right - indent, top + line_height_};
            DrawRightToLeftLine(dc_.m_hDC, line.substr(0, fitted.length), row, inside_);
        }
        const int left = from_right_ ? static_cast<int>(inside_.right) - indent - whole_width
                                     : static_cast<int>(inside_.left) + indent;
        if (!right_to_left_) {
            place(line.substr(0, fitted.length), left, top);
        }
        if (cut) {
            place(ellipsis, right_to_left_ ? left : left + width, top);
        }
    }

  private:
    void place(std::wstring_view text, int left, int top) {
        ::ExtTextOutW(dc_.m_hDC, left, top, ETO_CLIPPED, &inside_, text.data(), static_cast<UINT>(text.size()),
                      nullptr);
    }

    CDC& dc_;
    RECT inside_;
    bool right_to_left_;
    bool from_right_;
    bool centered_;
    int line_height_;
    std::vector<int> ends_;
};

int line_height(CDC& dc) {
    TEXTMETRICW metrics{};
    ::GetTextMetricsW(dc.m_hDC, &metrics);
    return metrics.tmHeight;
}

int line_count(std::wstring_view text) {
    return static_cast<int>(std::count(text.begin(), text.end(), L'\n')) + 1;
}

}  // namespace

int text_width(CDC& dc, std::wstring_view line) {
    SIZE size{};
    ::GetTextExtentPoint32W(dc.m_hDC, line.data(), static_cast<int>(line.size()), &size);
    return static_cast<int>(size.cx);
}

SIZE text_size(CDC& dc, std::wstring_view text) {
    const LONG height = line_count(text) * line_height(dc);
    SIZE size{0, height};
    for (std::wstring_view line; take_line(text, line);) {
        size.cx = std::max<LONG>(size.cx, text_width(dc, line));
    }
    return size;
}

void DrawCellText(CDC& dc, const RECT& rect, const wchar_t* text, const CellLook& look) {
    dc.SetBkColor(look.background);
    dc.SetBkMode(OPAQUE);
    ::ExtTextOutW(dc.m_hDC, 0, 0, ETO_OPAQUE, &rect, L"", 0, nullptr);
    DrawTextOver(dc, rect, text, look);
}

void DrawTextOver(CDC& dc, const RECT& rect, const wchar_t* text, const CellLook& look) {
    if (text == nullptr || text[0] == L'\0') {
        return;
    }
    const int height = line_height(dc);
    std::wstring_view rest = text;
    const int space = static_cast<int>(rect.bottom - rect.top) - line_count(rest) * height;
    int y = rect.top + std::max(0, space / 2);
    dc.SetTextColor(look.text);
    dc.SetBkMode(TRANSPARENT);
    LinePainter painter(dc, rect, contains_right_to_left(rest), look, height);
    for (std::wstring_view line; y < rect.bottom && take_line(rest, line); y += height) {
        painter.draw(line, y);
    }
}

SIZE CellTextSize(CDC& dc, const wchar_t* text) {
    const SIZE lines = text_size(dc, text != nullptr ? text : L"");
    return {lines.cx + 2 * cell_text_margin, lines.cy};
}

bool CellTextFits(CDC& dc, const RECT& rect, const wchar_t* text) {
    LinePainter painter(dc, rect, false, {}, 0);
    std::wstring_view rest = text != nullptr ? text : L"";
    for (std::wstring_view line; take_line(rest, line);) {
        if (painter.fit(line).shown != FittedLine::Shown::whole) {
            return false;
        }
    }
    return true;
}

}  // namespace corvanes
