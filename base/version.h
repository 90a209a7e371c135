// The version of all that is built here: of every binary's record, of report.json, and of ./run and tools/bundle, which
// read this file.
#pragma once

#define CORVANES_VERSION "1.0.0"
#define CORVANES_VERSION_NUMBERS 1, 0, 0, 0
