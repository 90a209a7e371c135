// Keeps the system variables that belong to a drawing in step with its header.
#pragma once

#include <map>
#include <optional>
#include <string>

#include "platform/host/editor/system_variables.h"

namespace dxf {
class Drawing;
}

namespace host {

/// It borrows the variables, which outlive it.
class DrawingVariables {
  public:
    explicit DrawingVariables(SystemVariables& variables) : variables_(variables) {}

    /// The drawing's values, where its header has them, and the initial values otherwise.
    void load(const dxf::Drawing& drawing);
    /// Takes over the values that an undo has changed in the header.
    void follow(const dxf::Drawing& drawing);
    /// Writes the values that were changed since load() into the header: a value that was changed and changed back
    /// leaves the drawing as it is. Nothing is written of what a drawing of this version has no place for.
    void store(dxf::Drawing& drawing);
    /// As store(), for the current layer, colour and text style alone, which the database reads from the header.
    void store_current_names(dxf::Drawing& drawing);

  private:
    void store(dxf::Drawing& drawing, std::wstring_view name);

    SystemVariables& variables_;
    std::map<std::wstring, VariableValue, std::less<>> loaded_;  ///< what the header says, or leaves out
};

/// The form in which CECOLOR keeps a colour: "BYLAYER", "BYBLOCK", or a number from 1 to 255. Nothing for another text.
std::optional<std::wstring> current_colour_from_text(std::wstring_view text);

/// The form in which ADDEDCOLOR keeps a colour: that of CECOLOR, or an empty text for "." and for an empty one.
std::optional<std::wstring> added_colour_from_text(std::wstring_view text);

/// The number of a colour that CECOLOR has: 256 for "BYLAYER", 0 for "BYBLOCK".
int current_colour_number(const std::wstring& text);

}  // namespace host
