// Runs commands by name: the host's own and those of modules, one inside another where that is allowed.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/host/prompt/command_names.h"
#include "rxdefs.h"

namespace host {

class CommandStack;
class DocumentManager;

/// It borrows the stack and the documents, which outlive it.
class CommandProcessor {
  public:
    CommandProcessor(CommandStack& registered, DocumentManager& documents)
        : registered_(registered), documents_(documents) {}

    /// Adds a command of the host. The name is in capitals. A transparent one may run while another command waits.
    void add_built_in(std::wstring name, std::function<void()> body, bool transparent = false);
    /// `ending` is called as the last part of each command that did not run inside another.
    void after_each(std::function<void()> ending) { ending_ = std::move(ending); }

    /// Runs what was typed at the "Command:" prompt. Unknown names, and commands that end with an exception, are
    /// reported on the command line; the host goes on. What the command does to the drawing is one step for UNDO.
    void run(std::wstring_view typed);
    /// Runs what was typed while another command waits for an answer, if it begins with "'"; a command that is not
    /// transparent is refused with a report. False when the text does not begin so and is therefore an answer.
    bool run_transparent(std::wstring_view typed);
    /// Runs one of the host's own commands for acedCommand; false when there is none of that name.
    bool run_built_in(std::wstring_view typed);

    bool has(std::wstring_view name) const { return find({std::wstring(name)}).body != nullptr; }
    /// The host's own commands, in order.
    std::vector<std::wstring> own_names() const;
    /// The host's own commands and the local names of the modules' commands.
    std::vector<std::wstring> names() const;

    bool is_busy() const { return !running_.empty(); }
    /// The commands that are active, outermost first, joined by "'".
    std::wstring running_names() const;
    bool runs_transparent_command() const;
    bool runs_function_of(HMODULE library) const;

  private:
    /// A command that was found. It may be unregistered while its body runs.
    struct Command {
        std::wstring name;
        std::function<void()> body;
        AcRxFunctionPtr function = nullptr;  ///< the module's function; null for a command of the host
        bool transparent = false;
    };
    struct BuiltIn {
        std::function<void()> body;
        bool transparent;
    };
    Command find(const CommandName& typed) const;
    void execute(const Command& command);

    CommandStack& registered_;
    DocumentManager& documents_;
    std::map<std::wstring, BuiltIn, std::less<>> built_in_;
    std::vector<const Command*> running_;
    std::function<void()> ending_;
};

}  // namespace host
