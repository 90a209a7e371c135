// Keeps the system variables that belong to a drawing in step with its header.
#pragma once

#include <map>
#include <string>

#include "platform/host/editor/system_variables.h"

namespace dxf {
class Drawing;
}

namespace host {

class DrawingVariables {
  public:
    explicit DrawingVariables(SystemVariables& variables) : variables_(variables) {}

    /// The drawing's values, where its header has them, and the initial values otherwise.
    void load(const dxf::Drawing& drawing);
    /// Writes the values that were changed since load() into the header, where it has them: a value that was changed
    /// and changed back leaves the drawing as it is.
    void store(dxf::Drawing& drawing);

  private:
    SystemVariables& variables_;
    std::map<std::wstring, VariableValue> loaded_;
};

}  // namespace host
