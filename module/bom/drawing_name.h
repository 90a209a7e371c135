// The name of the drawing that is open.
#pragma once

#include <string>

namespace corvanes {

/// The name with its extension and without its folder, as the host shows it; empty when no drawing is open.
std::wstring drawing_name();

}  // namespace corvanes
