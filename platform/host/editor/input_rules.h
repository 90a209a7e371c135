// What acedInitGet has set for the next question, and the text that the last one kept.
#pragma once

#include <string>
#include <string_view>

#include "platform/host/editor/keywords.h"
#include "platform/host/prompt/command_line.h"

namespace host {

class InputRules {
  public:
    void set(int flags, std::wstring_view keywords);
    /// The rules for one question; from then on there are none.
    InputRules take();

    bool has(int flag) const { return (flags_ & flag) != 0; }

    /// What an answer means before it is read as a number or a point: RTCAN for a cancel, RTNONE for Return where that
    /// is allowed, RTKWORD with `keyword` filled, RTNORM for a text that is still to be read, RTERROR for Return where
    /// it is not allowed.
    int classify(const Answer& answer, std::wstring& keyword) const;

    /// The keyword or text of the last question that gave RTKWORD.
    const std::wstring& last_input() const { return last_input_; }
    void keep_input(std::wstring text) { last_input_ = std::move(text); }

  private:
    int flags_ = 0;
    Keywords keywords_;
    std::wstring last_input_;
};

}  // namespace host
