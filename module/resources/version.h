// The product's version: of the module's resources, of report.json, and of ./run, which reads this file.
#pragma once

#define CORVANES_VERSION "1.0.0"
#define CORVANES_VERSION_NUMBERS 1, 0, 0, 0
