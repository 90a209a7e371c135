// ProxyTraits, what parts of an application's picture set for the parts behind them: how shapes look and where they
// stand.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/host/view/entity_scope.h"
#include "platform/host/view/proxy_stream.h"

namespace host {

/// Begins with the look and the coordinates of the entity that the picture belongs to. Colour, linetype and weight are
/// set at the scope's builder.
class ProxyTraits {
  public:
    /// The scope outlives the traits.
    explicit ProxyTraits(const EntityScope& scope);

    /// Takes a part that sets something; false for any other.
    bool take(ProxyPart part, ProxyStream body);

    /// Whether shapes are seen: their layer is.
    bool shown() const { return scope_.layers.shows_part(layer_); }
    /// From the current coordinates to those of the drawing's picture.
    Transform3 map() const { return matrices_.empty() ? scope_.space : scope_.space * matrices_.back(); }
    /// Whether the next shape is filled; end_shape() says that it was drawn.
    bool filled() const { return filled_; }
    void end_shape() { filled_ = false; }

  private:
    void set_colour(uint32_t index);
    void set_true_colour(uint32_t colour);
    void set_line_type(uint32_t number);
    void set_line_weight(int32_t weight);
    void set_layer(uint32_t number);
    void push_matrix(ProxyStream body);

    const EntityScope& scope_;
    const Ink own_ink_;
    const uint16_t own_pattern_;
    const uint8_t own_weight_;
    dxf::NameId layer_;
    uint32_t colour_ = 0;  ///< the colour that was set, by index; 0 of the entity, 256 of its layer
    bool filled_ = false;
    double line_type_scale_ = 1;
    std::vector<Transform3> matrices_;  ///< from the current coordinates to the entity's
};

}  // namespace host
