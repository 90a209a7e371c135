// Which layers show their entities, and in which colours.
#pragma once

#include <string>
#include <vector>

#include "platform/host/dxf/drawing.h"
#include "platform/host/view/pen.h"

namespace host {

struct LayerState {
    Ink ink = Ink::foreground();
    bool on = true;
    bool frozen = false;
    bool locked = false;
    std::wstring line_type;
    uint8_t weight = LineWeight::thin;
    bool shown() const { return on && !frozen; }
};

/// The state of every layer by its number in the drawing. A layer that the LAYER table does not have is on.
class LayerStates {
  public:
    explicit LayerStates(const dxf::Drawing& drawing);
    const LayerState& of(dxf::NameId layer) const { return layer < states_.size() ? states_[layer] : missing_; }
    /// The number of layer "0", or no_name when nothing is on it.
    dxf::NameId zero() const { return zero_; }
    bool is_zero(dxf::NameId layer) const { return layer == zero_ || layer == dxf::no_name; }
    /// The colour of what has the colour of its layer.
    Ink ink(dxf::NameId layer) const { return is_zero(layer) ? Ink::by_block_layer() : of(layer).ink; }
    /// The width of what has the width of its layer.
    uint8_t weight(dxf::NameId layer) const { return is_zero(layer) ? LineWeight::of_block_layer : of(layer).weight; }
    /// Whether a part of an entity on this layer is shown; one on layer 0 is where the entity is.
    bool shows_part(dxf::NameId layer) const { return is_zero(layer) || of(layer).shown(); }
    const LayerState& zero_state() const { return zero_state_; }

  private:
    std::vector<LayerState> states_;
    LayerState missing_;
    LayerState zero_state_;
    dxf::NameId zero_ = dxf::no_name;
};

}  // namespace host
