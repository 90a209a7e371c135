// Answers prompts from the argument list of acedCommand.
#pragma once

#include <deque>
#include <string>

#include "platform/host/prompt/command_line.h"

namespace host {

class ArgumentCommandLine final : public CommandLine {
  public:
    /// An empty argument is Return. `outer` gets what is printed and reported.
    ArgumentCommandLine(std::deque<std::wstring> arguments, CommandLine& outer)
        : arguments_(std::move(arguments)), outer_(outer) {}

    /// The next argument; cancel, and ran_out(), when there is none.
    Answer prompt(std::wstring_view text) override;
    void print(std::wstring_view text) override { outer_.print(text); }
    void report(std::wstring_view problem) override;

    bool ran_out() const { return ran_out_; }
    /// Something was reported: an argument was refused.
    bool refused() const { return refused_; }
    /// Arguments that no prompt asked for.
    size_t left_over() const { return arguments_.size(); }

  private:
    std::deque<std::wstring> arguments_;
    CommandLine& outer_;
    bool ran_out_ = false;
    bool refused_ = false;
};

}  // namespace host
