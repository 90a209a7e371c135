// The linetypes of a drawing.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/dxf/drawing.h"
#include "platform/host/view/pen.h"

namespace host {

/// Hands out numbers for the patterns that entities use. Patterns have the drawing's linetype scale in them.
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

}  // namespace host
