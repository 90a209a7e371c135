// The file that this module was loaded from.
#pragma once

#include <string>

namespace corvanes {

/// The module's full file name; empty until the module is attached.
const std::wstring& module_path();
void set_module_path(std::wstring path);

}  // namespace corvanes
