// The drawing of the parts of which controls in cells consist: button faces, arrows, and wells for bars.
#pragma once

#include <afxwin.h>

#include <string>
#include <vector>

#include "grid/cell_text.h"
#include "grid/control_layout.h"

namespace corvanes {

// The values are option bits of a CUGArrowType cell.
enum ArrowDirection : std::uint32_t { arrow_up = 1, arrow_down = 2, arrow_left = 4, arrow_right = 8 };

// The lines of pixels of an arrow's triangle, from its tip to its base, and the length of the base.
constexpr int arrow_depth = 5;
constexpr int arrow_base = 2 * arrow_depth - 1;

RECT rect_of(const Box& box);

// The height of a line in the font that `dc` has selected.
int font_height(CDC& dc);

// A filled triangle in the middle of `around`, smaller where that has no room. Drawn line by line, so that it is the
// same on every device.
void draw_arrow(CDC& dc, const Box& around, ArrowDirection direction, COLORREF color);

// A push button's face. Returns where its caption goes, which moves with a pressed face.
Box draw_button_face(CDC& dc, const Box& box, bool pressed, bool disabled);
COLORREF button_text_color(bool disabled);

// A sunken field in the window's colour with a frame around it. Returns its inside.
Box draw_well(CDC& dc, const Box& box);

// One of the areas that a text is painted across.
struct ColoredPart {
    Box box;
    COLORREF color;
};
// Fills the parts and draws the text across them, in each part in the colour that can be read there.
void draw_parts_with_text(CDC& dc, const std::vector<ColoredPart>& parts, const Box& text_box, const wchar_t* text,
                          CellLook look);

// A font selected into a device context for the time of a scope.
class SelectedFont {
  public:
    SelectedFont(CDC& dc, HFONT font) : dc_(dc), former_(::SelectObject(dc.m_hDC, font)) {}
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;
    ~SelectedFont() { ::SelectObject(dc_.m_hDC, former_); }

  private:
    CDC& dc_;
    HGDIOBJ former_;
};

// Restores at the end of a scope what a device context has selected and set.
class SavedDrawing {
  public:
    explicit SavedDrawing(CDC& dc) : dc_(dc), saved_(dc.SaveDC()) {}
    SavedDrawing(const SavedDrawing&) = delete;
    SavedDrawing& operator=(const SavedDrawing&) = delete;
    ~SavedDrawing() { dc_.RestoreDC(saved_); }

  private:
    CDC& dc_;
    int saved_;
};

}  // namespace corvanes
