// The module's commands in the host's command stack.
#pragma once

#include <rxdefs.h>

namespace corvanes {

/// Registers one command. `resource_string` -1 takes the local name as it is; otherwise the local name is that string
/// of the module's string table.
void register_command(const wchar_t* group, const wchar_t* global_name, const wchar_t* local_name, int flags,
                      AcRxFunctionPtr handler, int resource_string);

/// Registers both commands of the module.
void register_commands();
void remove_commands();

}  // namespace corvanes
