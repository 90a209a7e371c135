#include "platform/host/prompt/command_line.h"

#include <stdexcept>

namespace host {
namespace {

CommandLine* answering_now = nullptr;

}  // namespace

CommandLine& command_line() {
    if (answering_now == nullptr) {
        throw std::logic_error("no command line is answering");
    }
    return *answering_now;
}

CommandLineScope::CommandLineScope(CommandLine& answering) : previous_(answering_now) {
    answering_now = &answering;
}

CommandLineScope::~CommandLineScope() {
    answering_now = previous_;
}

}  // namespace host
