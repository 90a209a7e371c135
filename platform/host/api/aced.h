// The editor's interface for modules.
#pragma once

#include "accmd.h"
#include "acdocman.h"
#include "acedads.h"
#include "rxregsvc.h"
