// The command line that a script answers.
#pragma once

#include "platform/host/prompt/command_line.h"

namespace host {

class History;
class ScriptRun;

class ScriptedCommandLine final : public CommandLine {
  public:
    ScriptedCommandLine(ScriptRun& run, History& history) : run_(run), history_(history) {}

    /// Lets the windows paint, then takes the script's next line.
    Answer prompt(std::wstring_view text) override;
    void print(std::wstring_view text) override;
    /// Fails the script.
    void report(std::wstring_view problem) override;

  private:
    ScriptRun& run_;
    History& history_;
};

}  // namespace host
