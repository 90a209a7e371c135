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

// Painted in memory as a whole, so that nothing is to be erased before.
BOOL CUGMultiEdit::OnEraseBkgnd(CDC*) {
    return TRUE;
}

void CUGMultiEdit::OnPaint() {
    CPaintDC dc(this);
    PaintText(dc);
}

LRESULT CUGMultiEdit::OnPrintClient(WPARAM dc, LPARAM) {
    PaintText(*CDC::FromHandle(reinterpret_cast<HDC>(dc)));
    return 0;
}

void CUGMultiEdit::PaintText(CDC& screen) {
    RECT client{};
    GetClientRect(&client);
    const VisibleText visible = visible_text(editing_.model(), View());
    OffScreen picture(screen, client.right, client.bottom, ::GetSysColor(COLOR_WINDOW));
    DrawVisibleText(picture.dc(), visible, ::GetSysColor(COLOR_WINDOWTEXT));
    if (!editing_.selection().empty()) {
        PaintSelection(screen, picture.dc(), visible);
    }
    screen.BitBlt(0, 0, client.right, client.bottom, &picture.dc(), 0, 0, SRCCOPY);
}

void CUGMultiEdit::DrawVisibleText(CDC& picture, const VisibleText& visible, COLORREF color) {
    const HGDIOBJ former = ::SelectObject(picture.m_hDC, font_);
    picture.SetBkMode(TRANSPARENT);
    picture.SetTextColor(color);
    const int left_to_right = editing_.model().right_to_left() ? 0 : 1;
    DrawBidiText(picture.m_hDC, visible.text.c_str(), inner_rect(View()), nullptr, nullptr, alignment_, left_to_right,
                 0);
    ::SelectObject(picture.m_hDC, former);
}

// The whole text is painted a second time in the highlight's colours, and of that the selected characters are taken.
void CUGMultiEdit::PaintSelection(CDC& screen, CDC& picture, const VisibleText& visible) {
    RECT client{};
    GetClientRect(&client);
    OffScreen highlighted(screen, client.right, client.bottom, ::GetSysColor(COLOR_HIGHLIGHT));
    DrawVisibleText(highlighted.dc(), visible, ::GetSysColor(COLOR_HIGHLIGHTTEXT));

    const TextModel& model = editing_.model();
    const TextPositions positions = Measure()(visible.text);
    const TextView view = View();
    const auto layout =
        lay_out_text(visible.text, positions, view.client, line_height_, alignment_, !model.right_to_left());
    if (!layout) {
        return;
    }
    const TextRange selection = editing_.selection();
    for (const PlacedCharacter& character : layout->characters) {
        const size_t typed = model.map()[visible.indexes[character.index]];
        if (typed >= selection.start && typed < selection.end) {
            const int width = static_cast<int>(positions[character.index + 1] - positions[character.index]);
            picture.BitBlt(character.x, character.y, width, line_height_, &highlighted.dc(), character.x, character.y,
                           SRCCOPY);
        }
    }
}
