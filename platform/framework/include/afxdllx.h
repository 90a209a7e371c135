// Included by the one source file of an extension module that has its DllMain.
#pragma once

#include "afxwin.h"
