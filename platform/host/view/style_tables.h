// What a drawing's tables of layers, linetypes and text styles say of how entities look.
#pragma once

#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/host/dxf/drawing.h"
#include "platform/host/view/pen.h"
#include "platform/host/view/text_item.h"

namespace host {

struct LayerState {
    Ink ink = Ink::foreground();
    bool on = true;
    bool frozen = false;
    bool locked = false;
    std::wstring line_type;             ///< its name
    uint8_t weight = LineWeight::thin;  ///< in pixels
    bool shown() const { return on && !frozen; }
};

/// The state of every layer by its number in the drawing. A layer that the LAYER table does not have is on.
class LayerStates {
  public:
    explicit LayerStates(const dxf::Drawing& drawing);

    const LayerState& of(dxf::NameId layer) const { return layer < states_.size() ? states_[layer] : missing_; }
    /// Of layer "0", whether anything is on it or not.
    const LayerState& zero_state() const { return zero_state_; }
    bool is_zero(dxf::NameId layer) const { return layer == zero_ || layer == dxf::no_name; }
    /// The colour of what has the colour of its layer.
    Ink ink(dxf::NameId layer) const { return is_zero(layer) ? Ink::by_block_layer() : of(layer).ink; }
    /// The width of what has the width of its layer.
    uint8_t weight(dxf::NameId layer) const { return is_zero(layer) ? LineWeight::of_block_layer : of(layer).weight; }
    /// Whether a part of a shown entity is shown when the part is on this layer; on layer 0 it always is.
    bool shows_part(dxf::NameId layer) const { return is_zero(layer) || of(layer).shown(); }

  private:
    std::vector<LayerState> states_;
    LayerState missing_;
    LayerState zero_state_;
    dxf::NameId zero_ = dxf::no_name;  ///< the number of layer "0"; no_name when nothing is on it
};

/// The linetypes, with numbers for the patterns that entities use. Patterns are scaled by the drawing's $LTSCALE.
class LineTypes {
  public:
    /// Numbers go on behind the `known` patterns, the first of which is continuous.
    explicit LineTypes(const dxf::Drawing& drawing, std::vector<LinePattern> known);

    /// The number of the pattern of a linetype, by name without regard to case, at an entity's own scale. Continuous
    /// for an unknown linetype.
    uint16_t pattern(const std::wstring& name, double scale);
    /// All patterns by number.
    std::vector<LinePattern> take_patterns() { return std::move(patterns_); }

  private:
    std::map<std::wstring, LinePattern> types_;  ///< by names in lower case; without continuous ones
    std::map<std::pair<std::wstring, double>, uint16_t> numbers_;
    std::vector<LinePattern> patterns_;
};

struct TextStyle {
    double width_factor = 1;
    double slant = 0;   ///< radians
    uint16_t font = 0;  ///< in TextStyles::fonts()
};

/// The text styles, with numbers for the fonts that they and entities use.
class TextStyles {
  public:
    /// The family that stands for shape fonts and for font files that nothing is known about.
    static constexpr wchar_t usual_family[] = L"Arial";

    /// Numbers of fonts go on behind the `known` ones.
    explicit TextStyles(const dxf::Drawing& drawing, std::vector<FontFace> known);
    /// The style by name without regard to case; "Standard" for an empty or unknown one.
    const TextStyle& named(const std::wstring& name) const;
    /// Whether a style was asked for that is not there.
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
