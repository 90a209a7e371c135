// What the menu and clicks have typed, and no prompt has taken yet.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host/prompt/person.h"

namespace host {

class TypedAhead {
  public:
    /// A command, and behind line ends the answers to what it asks. One that begins with "'" is transparent; any other
    /// cancels what is running first.
    void add(std::wstring_view command);

    bool empty() const { return lines_.empty(); }
    /// What answers a prompt; nothing when the person is to answer. `busy`: a command asks. Answers to a command that
    /// has ended early are dropped, and so is a command that waits for one that does not let itself be cancelled.
    std::optional<Answer> next(bool busy);

  private:
    struct Line {
        std::wstring text;
        bool begins;  ///< a command
    };
    void drop_answers();

    std::deque<Line> lines_;
    int cancelled_ = 0;  ///< prompts, for the command that is next
};

}  // namespace host
