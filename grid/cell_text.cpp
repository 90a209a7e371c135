#include "grid/cell_text.h"

#include <algorithm>
#include <string_view>

#include "bidi/draw_bidi_text.h"

namespace corvanes {

void DrawCellText(CDC& dc, const RECT& rect, const wchar_t* text, COLORREF text_color, COLORREF background) {
    dc.SetTextColor(text_color);
    dc.SetBkColor(background);
    dc.SetBkMode(OPAQUE);
    ::ExtTextOutW(dc.m_hDC, 0, 0, ETO_OPAQUE, &rect, L"", 0, nullptr);
    std::wstring_view rest = text != nullptr ? text : L"";
    if (rest.empty()) {
        return;
    }
    const RECT inside{rect.left + cell_text_margin, rect.top, rect.right - cell_text_margin, rect.bottom};
    if (DrawRightToLeftCell(dc.m_hDC, text, inside)) {
        return;
    }
    TEXTMETRICW metrics;
    ::GetTextMetricsW(dc.m_hDC, &metrics);
    const auto lines = static_cast<int>(std::count(rest.begin(), rest.end(), L'\n')) + 1;
    const int space = static_cast<int>(rect.bottom - rect.top) - lines * metrics.tmHeight;
    int y = rect.top + std::max(0, space / 2);
    dc.SetBkMode(TRANSPARENT);
    while (y < rect.bottom) {
        const std::size_t end = std::min(rest.find(L'\n'), rest.size());
        ::ExtTextOutW(dc.m_hDC, rect.left + cell_text_margin, y, ETO_CLIPPED, &rect, rest.data(),
                      static_cast<UINT>(end), nullptr);
        if (end == rest.size()) {
            break;
        }
        rest.remove_prefix(end + 1);
        y += metrics.tmHeight;
    }
}

}  // namespace corvanes
