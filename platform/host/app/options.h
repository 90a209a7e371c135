// The program's arguments.
#pragma once

#include <string>
#include <vector>

#include "base/result.h"

namespace host {

struct Options {
    std::wstring drawing;  ///< empty: none is opened
    std::wstring script;   ///< empty: a person types
    std::vector<std::wstring> modules;
    bool hidden = false;   ///< the main window is not shown
    bool verbose = false;  ///< what the command line prints goes to standard error too
    bool version = false;
    bool help = false;
    int stall_seconds = 60;  ///< how long a script may go without taking a line
};

/// Reads the arguments after the program's name; the reason of a failure is one line for the user.
base::Result<Options> read_options(const std::vector<std::wstring>& arguments);

/// The help text that --help shows.
extern const wchar_t usage[];

}  // namespace host
