// Compiled shapes, as files ".shx" of the kind "AutoCAD-86 shapes" hold them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host/view/polyline_path.h"

namespace host {

/// Lines that are drawn without lifting the pen, in units of the shape: it begins at 0, 0.
using ShapeStroke = std::vector<PathVertex>;

class ShapeFile {
  public:
    /// Nothing for bytes that are no file of shapes. Every length in them is held against what is there.
    static std::optional<ShapeFile> read(std::string_view bytes);
    /// The strokes of a shape by its name without regard to case; none for an unknown one. Shapes that are longer than
    /// any drawing needs, or contain themselves, end early.
    std::vector<ShapeStroke> strokes(std::string_view name) const;

  private:
    std::map<std::string, uint16_t> code_of_;   ///< by names in capitals
    std::map<uint16_t, std::string> programs_;  ///< what the pen does, by code
};

}  // namespace host
