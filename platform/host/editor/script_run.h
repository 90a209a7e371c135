// A script while it runs: which line is next, and the first thing that went wrong.
#pragma once

#include <atomic>
#include <cstddef>
#include <string>
#include <string_view>

#include "platform/host/editor/script.h"
#include "platform/host/prompt/person.h"

namespace host {

/// Used on the host's main thread, except for what is said otherwise.
class ScriptRun {
  public:
    explicit ScriptRun(Script script);

    bool at_end() const { return next_ == script_.lines.size(); }
    bool failed() const { return failed_; }
    /// "script FILE:LINE: reason", or empty.
    const std::wstring& failure() const { return failure_; }

    /// Takes the next line as the answer to a prompt. Fails the run, and answers with cancel, when the script has ended
    /// or its next line is for a dialog; cancels all prompts after a failure.
    Answer answer(std::wstring_view prompt);

    /// The next line's action for the dialog that is open (`dialog` names it in a failure), without taking the line.
    /// Null, and the run failed, when there is none.
    const DialogAction* action(std::wstring_view dialog);
    void take_action();

    /// Stops the run. The reason belongs to the line taken last; the first failure stays.
    void fail(std::wstring_view reason);

    /// How many lines were taken. Any thread.
    size_t progress() const { return progress_; }
    /// What to say of a run that makes no progress any more: its failure, or this reason. Any thread; changes nothing.
    std::wstring stall_failure(std::wstring_view reason) const;

  private:
    std::wstring at_line(size_t line, std::wstring_view reason) const;
    void take();
    void fail_at(size_t line, std::wstring_view reason);
    /// Fails at the line that is next; at the last one when the script has ended.
    void fail_at_next(std::wstring_view reason);

    const Script script_;
    size_t next_ = 0;
    std::wstring failure_;  ///< written once, before failed_
    std::atomic<bool> failed_{false};
    std::atomic<size_t> progress_{0};
    std::atomic<size_t> line_taken_{0};
};

}  // namespace host
