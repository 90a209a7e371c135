// How the editor paints its text.
#include <algorithm>

#include "bidi/draw_bidi_text.h"
#include "bidi/multi_edit.h"
#include "bidi/off_screen.h"

using namespace corvanes;

namespace {

RECT inner_rect(const TextView& view) {
    return {view.client.left, view.client.top, view.client.right, view.client.bottom};
}

}  // namespace

// Nothing is erased, because the whole window is painted in memory and then copied.
BOOL CUGMultiEdit::OnEraseBkgnd(CDC*) {
    return TRUE;
}

void CUGMultiEdit::OnPaint() {
    CPaintDC dc(this);
    PaintText(dc, dc.m_ps.rcPaint);
}

LRESULT CUGMultiEdit::OnPrintClient(WPARAM dc, LPARAM) {
    RECT client{};
    GetClientRect(&client);
    PaintText(*CDC::FromHandle(reinterpret_cast<HDC>(dc)), client);
    return 0;
}

void CUGMultiEdit::PaintText(CDC& screen, const RECT& part) {
    RECT client{};
    GetClientRect(&client);
    const RowRange rows = rows_between(View(), part.top, part.bottom);
    const TextView view = rows_of_view(View(), rows.first, rows.count);
    OffScreen picture(screen, client.right, client.bottom, ::GetSysColor(COLOR_WINDOW));
    if (rows.count > 0) {
        const VisibleText visible = visible_text(editing_.model(), view, editing_.selection());
        DrawVisibleText(picture.dc(), view, visible, ::GetSysColor(COLOR_WINDOWTEXT));
        if (std::find(visible.selected.begin(), visible.selected.end(), true) != visible.selected.end()) {
            PaintSelection(screen, picture.dc(), view, visible);
        }
    }
    const int width = part.right - part.left;
    screen.BitBlt(part.left, part.top, width, part.bottom - part.top, &picture.dc(), part.left, part.top, SRCCOPY);
}

void CUGMultiEdit::DrawVisibleText(CDC& picture, const TextView& view, const VisibleText& visible, COLORREF color) {
    const HGDIOBJ former = ::SelectObject(picture.m_hDC, font_);
    picture.SetBkMode(TRANSPARENT);
    picture.SetTextColor(color);
    const int left_to_right = editing_.model().right_to_left() ? 0 : 1;
    DrawBidiText(picture.m_hDC, visible.text.c_str(), inner_rect(view), nullptr, nullptr, alignment_, left_to_right, 0);
    ::SelectObject(picture.m_hDC, former);
}

// The text is painted a second time in the highlight's colours, and of that the selected characters are taken.
void CUGMultiEdit::PaintSelection(CDC& screen, CDC& picture, const TextView& view, const VisibleText& visible) {
    RECT client{};
    GetClientRect(&client);
    OffScreen highlighted(screen, client.right, client.bottom, ::GetSysColor(COLOR_HIGHLIGHT));
    DrawVisibleText(highlighted.dc(), view, visible, ::GetSysColor(COLOR_HIGHLIGHTTEXT));

    const TextPositions positions = Measure()(visible.text);
    const bool left_to_right = !editing_.model().right_to_left();
    const auto layout = lay_out_text(visible.text, positions, view.client, line_height_, alignment_, left_to_right);
    if (!layout) {
        return;
    }
    for (const PlacedCharacter& character : layout->characters) {
        if (visible.selected[character.index]) {
            const int width = static_cast<int>(positions[character.index + 1] - positions[character.index]);
            picture.BitBlt(character.x, character.y, width, line_height_, &highlighted.dc(), character.x, character.y,
                           SRCCOPY);
        }
    }
}
