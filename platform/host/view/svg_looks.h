// How the elements of an SVG file look: what they inherit, their classes, and the style sheet that says how those look.
#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/host/view/display_list.h"
#include "platform/host/view/style_tables.h"

namespace host {

/// Tells what of a picture's look depends on the block reference that places it.
class InheritedLooks {
  public:
    /// The list outlives this.
    explicit InheritedLooks(const DisplayList& list) : list_(list), of_picture_(list.pictures.size()) {}

    /// The same look for the picture, with the usual value for everything that nothing in it inherits. Colours stay
    /// what they are inherited as: the reference's, which may be its layer's, and its layer's.
    Surroundings reduced(uint32_t picture, const Surroundings& around);

  private:
    /// Whether anything in the picture, through all levels, takes this from the reference or from its layer.
    struct Uses {
        bool ink = false;
        bool layer_zero = false;
        bool pattern = false;
        bool layer_pattern = false;
        bool weight = false;
        bool layer_weight = false;
    };
    const Uses& of(uint32_t picture);
    void add(Uses& uses, const Instance& instance);

    const DisplayList& list_;
    std::vector<std::optional<Uses>> of_picture_;
};

/// Gives the classes of what is drawn and remembers which ones the sheet must have. Stroke and fill that an element
/// inherits are those of the layer of the block reference around it; `color` is the block reference's own colour.
/// A viewer that sets --ink and --paper swaps the colours of colour 7 and of masks.
class SvgLooks {
  public:
    /// The height of capitals in the usual faces, in the units that texts are written in.
    static constexpr double capitals = 71.6;

    /// Both outlive this. `pixels_per_unit`: of dashes at the size that the file says.
    SvgLooks(const DisplayList& list, const dxf::Drawing& drawing, double pixels_per_unit)
        : list_(list), drawing_(drawing), layers_(drawing), pixels_per_unit_(pixels_per_unit) {}

    /// The classes of a line, an area or a text, with what it inherits resolved as `around` says.
    std::string of_shape(const Primitive& primitive, const Surroundings& around);
    /// Those that a text has besides, for its font, direction and anchor.
    std::string of_text(const TextItem& item);
    /// Those of a placed block, with what its inherited colours mean.
    const std::string& of_reference(dxf::RecordId entity, Ink ink, Ink layer_ink);
    /// Those of the group around everything in the space.
    std::string of_space();

    std::string style_sheet() const;
    /// The layers by their classes, as elements that are not seen.
    std::string layers() const;

  private:
    struct ReferenceLook {
        Ink ink;
        Ink layer_ink;
        std::string classes;
    };

    dxf::NameId layer_of(dxf::RecordId entity) const;
    std::string classes_of_reference(dxf::NameId layer, Ink ink, Ink layer_ink_inside);
    std::string layer_class(dxf::NameId layer);
    Ink layer_ink(dxf::NameId layer) const;
    std::string colour_class(Ink ink, const char* prefix);

    const DisplayList& list_;
    const dxf::Drawing& drawing_;
    LayerStates layers_;
    double pixels_per_unit_;
    std::set<dxf::NameId> used_layers_;
    std::unordered_map<dxf::NameId, ReferenceLook> last_reference_;  ///< on each layer: most look like it
    std::map<std::string, std::string> colours_;                     ///< rules by class
    std::set<uint16_t> patterns_;
    std::set<uint8_t> weights_;
};

}  // namespace host
