// Lets the person start a transparent command ("'NAME") where another command waits for an answer.
#pragma once

#include "platform/host/prompt/command_line.h"

namespace host {

class CommandProcessor;

class TransparentCommandLine final : public CommandLine {
  public:
    TransparentCommandLine(CommandLine& answering, CommandProcessor& processor)
        : answering_(answering), processor_(processor) {}

    /// Runs transparent commands and asks again until another answer comes.
    Answer prompt(std::wstring_view text) override;
    void print(std::wstring_view text) override { answering_.print(text); }
    void report(std::wstring_view problem) override { answering_.report(problem); }

  private:
    CommandLine& answering_;
    CommandProcessor& processor_;
};

}  // namespace host
