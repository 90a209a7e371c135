// The name of the drawing that is open.
#pragma once

#include <string>

namespace corvanes {

/// With its extension and without its folder, as the host shows it; empty when there is none.
std::wstring drawing_name();

}  // namespace corvanes
