#include "platform/host/editor/argument_command_line.h"

namespace host {

Answer ArgumentCommandLine::prompt(std::wstring_view) {
    if (arguments_.empty()) {
        ran_out_ = true;
        return {};
    }
    Answer answer{arguments_.front().empty() ? Answer::return_only : Answer::line, std::move(arguments_.front())};
    arguments_.pop_front();
    return answer;
}

void ArgumentCommandLine::report(std::wstring_view problem) {
    refused_ = true;
    outer_.report(problem);
}

}  // namespace host
