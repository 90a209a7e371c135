// The system's common controls, as the system declares them.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include "afxwin.h"
