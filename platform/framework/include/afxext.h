// The framework's extensions; sources include it by habit.
#pragma once

#include "afxwin.h"
