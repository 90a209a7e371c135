// The system registry and its well-known names, and loading modules by file name.
#pragma once

#include "rxdefs.h"
#include "rxdict.h"

#define ACRX_DYNAMIC_LINKER ACRX_T("DynamicLinker")
#define ACRX_COMMAND_DOCK ACRX_T("ACAD_REGISTERED_COMMANDS")

/// True when the module is loaded (already, or now). `asCmd` only says whether refusals are printed.
bool acrxLoadModule(const ACHAR* moduleName, bool printit, bool asCmd = false);
bool acrxUnloadModule(const ACHAR* moduleName, bool asCmd = false);
