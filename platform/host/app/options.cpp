#include "platform/host/app/options.h"

#include <algorithm>

namespace host {
namespace {

bool read_seconds(const std::wstring& text, int& seconds) {
    const bool digits = !text.empty() && text.size() < 6 &&
                        std::all_of(text.begin(), text.end(), [](wchar_t c) { return c >= L'0' && c <= L'9'; });
    seconds = digits ? std::stoi(text) : 0;
    return seconds > 0;
}

base::Outcome<> take_value(const std::wstring& name, const std::wstring& value, Options& options) {
    if (name == L"--script") {
        options.script = value;
    } else if (name == L"--load") {
        options.modules.push_back(value);
    } else if (!read_seconds(value, options.stall_seconds)) {
        return base::Failure{name + L" needs a number of seconds"};
    }
    return {};
}

}  // namespace

const wchar_t usage[] =
    L"usage: drawinghost [DRAWING] [--load MODULE.arx]... [--script FILE] [--hidden] [--verbose]\n"
    L"                   [--stall-seconds N]\n"
    L"\n"
    L"  --load MODULE.arx   load a module (more than once for more)\n"
    L"  --script FILE       run a script, then end; the status is 1 when the script has failed\n"
    L"  --hidden            do not show the main window\n"
    L"  --verbose           write what the command line prints to standard error too\n"
    L"  --version           print the version\n"
    L"  --stall-seconds N   end a script that takes no line for N seconds (60)\n";

base::Result<Options> read_options(const std::vector<std::wstring>& arguments) {
    Options options;
    for (size_t at = 0; at < arguments.size(); ++at) {
        const std::wstring& argument = arguments[at];
        if (argument == L"--script" || argument == L"--load" || argument == L"--stall-seconds") {
            if (++at == arguments.size()) {
                return base::Failure{argument + L" needs a value"};
            }
            if (const base::Outcome<> taken = take_value(argument, arguments[at], options); !taken) {
                return base::Failure{taken.reason()};
            }
        } else if (argument == L"--hidden") {
            options.hidden = true;
        } else if (argument == L"--verbose") {
            options.verbose = true;
        } else if (argument == L"--version") {
            options.version = true;
        } else if (argument == L"--help") {
            options.help = true;
        } else if (argument.starts_with(L"--")) {
            return base::Failure{L"unknown option " + argument};
        } else if (!options.drawing.empty()) {
            return base::Failure{L"more than one drawing: " + argument};
        } else {
            options.drawing = argument;
        }
    }
    return options;
}

}  // namespace host
