// What of a picture's look depends on the block reference that places it.
#pragma once

#include <optional>
#include <vector>

#include "platform/host/view/display_list.h"

namespace host {

class InheritedLooks {
  public:
    /// Outlives this.
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

}  // namespace host
