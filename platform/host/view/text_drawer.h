// Draws the texts of a painted frame with the system's fonts.
#pragma once

#include <windows.h>

#include <map>
#include <tuple>
#include <vector>

#include "platform/host/view/gdi_handles.h"
#include "platform/host/view/list_painter.h"

namespace host {

/// Keeps the fonts that it has made, one for each face; their sizes are left to the transforms.
class TextDrawer {
  public:
    /// `fonts` are the display list's.
    void draw(HDC context, const std::vector<PlacedText>& texts, const std::vector<FontFace>& fonts);

  private:
    void draw_one(HDC context, const PlacedText& text, const FontFace& face);
    HFONT font(const FontFace& face);
    /// The height of a face's capitals as a part of its em.
    double capital_height(HDC context, const FontFace& face);
    /// The natural width of an item in the text's own plane.
    double width(HDC context, const TextItem& item, const FontFace& face);

    std::map<std::tuple<std::wstring, bool, bool>, GdiObject> fonts_;  ///< by family, bold and italic
    std::map<std::wstring, double> capital_heights_;                   ///< by family
};

}  // namespace host
