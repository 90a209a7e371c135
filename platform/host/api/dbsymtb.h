// Symbol tables, their records and iterators.
#pragma once

#include "dbblktbl.h"
#include "dblyrtbl.h"
#include "dbmain.h"
#include "dbtxttbl.h"
