// The command line of a person at the window.
#pragma once

#include "platform/host/prompt/command_line.h"

namespace host {

class History;
class MainWindow;

class TypedCommandLine final : public CommandLine {
  public:
    TypedCommandLine(MainWindow& window, History& history) : window_(window), history_(history) {}

    Answer prompt(std::wstring_view text) override;
    void print(std::wstring_view text) override;
    void report(std::wstring_view problem) override;

  private:
    MainWindow& window_;
    History& history_;
};

}  // namespace host
