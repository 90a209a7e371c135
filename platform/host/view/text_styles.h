// The drawing's text styles as the view needs them.
#pragma once

#include <string>
#include <unordered_map>
#include <vector>

#include "platform/host/dxf/drawing.h"
#include "platform/host/view/text_item.h"

namespace host {

struct TextStyle {
    double width_factor = 1;
    double slant = 0;  ///< radians
    uint16_t font = 0;
};

class TextStyles {
  public:
    /// The face that stands for shape fonts and for files that nothing is known about.
    static constexpr wchar_t usual_family[] = L"Arial";

    /// Numbers of fonts go on behind the `known` ones.
    explicit TextStyles(const dxf::Drawing& drawing, std::vector<FontFace> known);
    /// The style by name without regard to case; "Standard" for an empty or unknown one.
    const TextStyle& named(const std::wstring& name) const;
    /// A style that is not there was asked for.
    bool lacking() const { return lacking_; }
    const std::vector<FontFace>& fonts() const { return fonts_; }
    /// The number of a font in fonts(), which grows when it is new.
    uint16_t font_number(const FontFace& face);

  private:
    std::unordered_map<std::wstring, TextStyle> styles_;
    std::vector<FontFace> fonts_;
    TextStyle standard_;
    mutable bool lacking_ = false;
};

}  // namespace host
