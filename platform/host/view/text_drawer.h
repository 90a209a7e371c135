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
    using Key = std::tuple<std::wstring, bool, bool>;
    static Key key(const FontFace& face) { return {face.family, face.bold, face.italic}; }

    struct Proportions {
        double capitals = 183;  ///< the height of a capital in the font's units
        /// The usual face may be missing and shown by a wider one, which is made as narrow as lines were broken for.
        double narrowing = 1;
    };
    void draw_one(HDC context, const PlacedText& text, const FontFace& face);
    HFONT font(const FontFace& face);
    const Proportions& proportions(HDC context, const FontFace& face);

    std::map<Key, GdiObject> fonts_;
    std::map<Key, Proportions> proportions_;
};

}  // namespace host
