// A command line that answers from a list.
#pragma once

#include <deque>
#include <string>
#include <utility>

#include "platform/host/prompt/command_line.h"

namespace host {

/// Answers from a list ("^C" cancels, "" is Return), and keeps everything that is said.
class ListCommandLine final : public CommandLine {
  public:
    explicit ListCommandLine(std::deque<std::wstring> answers = {}) : answers_(std::move(answers)) {}

    Answer prompt(std::wstring_view text) override {
        said += L"<" + std::wstring(text) + L">";
        if (answers_.empty() || answers_.front() == L"^C") {
            return {};
        }
        Answer answer{answers_.front().empty() ? Answer::return_only : Answer::line, answers_.front()};
        answers_.pop_front();
        return answer;
    }
    void print(std::wstring_view text) override { said += text; }
    void report(std::wstring_view problem) override { said += L"!" + std::wstring(problem); }

    std::wstring said;

  private:
    std::deque<std::wstring> answers_;
};

}  // namespace host
