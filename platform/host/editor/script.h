// Scripts: what a person would type at the prompts and do in the dialogs, line by line; and a script while it runs.
#pragma once

#include <atomic>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/result.h"
#include "platform/host/prompt/person.h"

namespace host {

/// One step in the dialog that is open: a line that begins with "@".
struct DialogAction {
    enum Kind {
        press,              ///< @press TARGET
        tick,               ///< @tick TARGET on|off
        click_cell,         ///< @click-cell COLUMN ROW
        double_click_cell,  ///< @double-click-cell COLUMN ROW
        click_heading,      ///< @click-heading COLUMN
        drag_border,        ///< @drag-border COLUMN PIXELS: the right border of the column's heading
        type,               ///< @type "text"
        key,                ///< @key [CTRL+][SHIFT+][ALT+]NAME
        picture,            ///< @picture "file.png": here backslashes are themselves
        expect_text,        ///< @expect-text ID "text"
        close,              ///< @close: the title bar's close box
        alert,              ///< @alert "text" [BUTTON]: answers a message; "*" in the text stands for anything
        expect_enabled,     ///< @expect-enabled TARGET on|off
        print,              ///< @print "file.png": the pages that the dialog would print, as pictures
    };

    Kind kind = press;
    /// The control: its number, or (when the number is absent) its caption in `text`, "&" left out.
    std::optional<int> id;
    std::wstring text;
    /// Of alert: OK, CANCEL, ABORT, RETRY, IGNORE, YES or NO; empty is the default button.
    std::wstring button;
    int column = 0;
    int row = 0;
    int pixels = 0;
    bool on = false;
    /// A Windows virtual-key code.
    int virtual_key = 0;
    unsigned modifiers = 0;  ///< NamedKey::Modifier bits
};

struct ScriptLine {
    size_t number = 0;  ///< 1-based line of the file
    std::wstring text;
    std::optional<DialogAction> action;  ///< of a line that begins with "@"
};

/// The lines of a script. Comment lines (";" first) are left out; empty lines are answers and stay.
struct Script {
    std::wstring file;
    std::vector<ScriptLine> lines;
};

/// What is wrong with a script, and where.
struct ScriptFault {
    size_t line = 0;
    std::wstring reason;
};

/// Reads a whole script, UTF-8 with or without byte-order mark, lines ended by LF or CR LF. All "@" lines are checked
/// here, so that a misspelt one stops the script before anything has run.
base::Result<Script, ScriptFault> read_script(std::string_view bytes, std::wstring file);

/// A script while it runs: which line is next, and the first thing that went wrong. Only the main thread uses it, but
/// for the members that say "any thread".
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
    /// Fails the run and returns null when the next line has none.
    const DialogAction* action(std::wstring_view dialog);
    void take_action();

    /// Stops the run. The reason belongs to the line taken last; the first failure stays.
    void fail(std::wstring_view reason);

    /// How many lines were taken; any thread may ask.
    size_t progress() const { return progress_; }
    /// What to say of a run that makes no progress any more: its failure, or this reason. Changes nothing; any thread
    /// may ask.
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

/// A caption as a person reads it: without "&" (but "&&" gives one "&"), and without the text after a tab.
std::wstring plain_caption(std::wstring_view caption);

}  // namespace host
