// The system registry and its well-known names.
#pragma once

#include "rxdefs.h"
#include "rxdict.h"

#define ACRX_DYNAMIC_LINKER ACRX_T("DynamicLinker")
#define ACRX_COMMAND_DOCK ACRX_T("ACAD_REGISTERED_COMMANDS")
