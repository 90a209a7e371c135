// The framework's collection templates.
#pragma once

#include "afxarray_.h"
#include "afxmap_.h"
