// The command line as commands see it: they ask and print, and do not know whether a person or a script answers.
#pragma once

#include <string>
#include <string_view>

namespace host {

/// What came back from a prompt.
struct Answer {
    enum Kind {
        line,         ///< a text, without its line end
        return_only,  ///< Return or an empty line: the default, or the end of a repeated question
        cancel,       ///< Escape or ^C: the command gives up
    };
    Kind kind = cancel;
    std::wstring text;
    bool with_shift = false;  ///< a point that was picked while the Shift key was down
};

class CommandLine {
  public:
    virtual ~CommandLine() = default;

    /// Shows `text` and waits for one answer. A person may run transparent commands before it comes.
    /// After a script has failed every prompt answers with cancel, so that commands unwind.
    virtual Answer prompt(std::wstring_view text) = 0;

    /// Adds text to the history. Line ends are where the text has them ("\n" begins a new line).
    virtual void print(std::wstring_view text) = 0;

    /// Prints, on a line of its own, that something could not be done (an answer that is no point, an unknown command).
    /// A person reads it and goes on; a script stops there.
    virtual void report(std::wstring_view problem) = 0;
};

/// The command line that is answering now. During acedCommand this is its argument list.
CommandLine& command_line();

/// Makes another command line answer for the life of this object.
class CommandLineScope {
  public:
    explicit CommandLineScope(CommandLine& answering);
    ~CommandLineScope();
    CommandLineScope(const CommandLineScope&) = delete;
    CommandLineScope& operator=(const CommandLineScope&) = delete;

  private:
    CommandLine* previous_;
};

}  // namespace host
