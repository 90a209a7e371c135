// Gives the outlines of text in the system's fonts.
#pragma once

#include <windows.h>

#include <map>
#include <tuple>
#include <unordered_map>

#include "platform/host/view/gdi_handles.h"
#include "platform/host/view/outline.h"

namespace host {

/// Keeps the outline of each letter that it has met, and of whole lines where letters change beside each other.
class SystemTypesetter final : public Typesetter {
  public:
    SystemTypesetter();
    const TextShape& shape(const TextItem& item, const FontFace& face) override;

  private:
    struct Face {
        GdiObject font;
        double capitals = 1;   ///< the height of a capital in the font's units
        double narrowing = 1;  ///< the usual face may be missing and shown by a wider one, made as narrow as lines need
        std::unordered_map<wchar_t, TextShape> letters;
        std::unordered_map<std::wstring, TextShape> lines;  ///< those shaped as a whole, behind their direction
        size_t points_of_lines = 0;
    };
    using Key = std::tuple<std::wstring, bool, bool>;

    Face& face(const FontFace& wanted);
    const Face& able_face(const Face& own, const FontFace& wanted, const std::wstring& text);
    const TextShape& letter_shape(Face& own, const FontFace& wanted, wchar_t letter);
    const TextShape& line_shape(Face& own, const FontFace& wanted, const TextItem& item);
    TextShape made(const Face& own, const FontFace& wanted, const std::wstring& text, bool from_right);
    TextShape patched(const Face& own, const FontFace& wanted, const std::wstring& text, bool from_right);
    TextShape outlined(const Face& face, const std::wstring& text, bool from_right);
    bool has_letters(const Face& face, const std::wstring& text);

    MemoryContext context_;
    std::map<Key, Face> faces_;
    TextShape line_;
};

}  // namespace host
