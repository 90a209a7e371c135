#include "platform/host/editor/command_processor.h"

#include <algorithm>
#include <exception>

#include "base/code_page.h"
#include "platform/host/dxf/drawing.h"
#include "platform/host/editor/command_stack.h"
#include "platform/host/editor/document_manager.h"
#include "platform/host/prompt/command_names.h"
#include "platform/host/prompt/person.h"

namespace host {
namespace {

std::wstring in_capitals(std::wstring_view name) {
    std::wstring capitals(name);
    CharUpperBuffW(capitals.data(), static_cast<DWORD>(capitals.size()));
    return capitals;
}

std::wstring unknown_command(std::wstring_view name, const std::vector<std::wstring>& known) {
    const std::wstring nearest = nearest_name(name, known);
    return L"Unknown command \"" + in_capitals(name) + L"\"." +
           (nearest.empty() ? L"" : L" Did you mean " + nearest + L"?");
}

}  // namespace

void CommandProcessor::add_built_in(std::wstring name, std::function<void()> body, bool transparent) {
    built_in_[std::move(name)] = {std::move(body), transparent};
}

CommandProcessor::Command CommandProcessor::find(const CommandName& typed) const {
    if (!typed.built_in) {
        const RegisteredCommand* found = typed.global_only ? nullptr : registered_.with_local_name(typed.name);
        if (found == nullptr) {
            found = registered_.with_global_name(typed.name);
        }
        if (found != nullptr) {
            return {found->local_name, found->function, found->function, (found->flags & ACRX_CMD_TRANSPARENT) != 0};
        }
    }
    const auto own = built_in_.find(in_capitals(typed.name));
    return own == built_in_.end() ? Command{} : Command{own->first, own->second.body, nullptr, own->second.transparent};
}

void CommandProcessor::run(std::wstring_view typed) {
    const CommandName name = parse_command_name(typed);
    if (name.name.empty()) {
        return;
    }
    const Command command = find(name);
    if (!command.body) {
        person().report(unknown_command(name.name, names()));
        return;
    }
    if (documents_.document() != nullptr) {
        documents_.document()->drawing().history().begin_step(command.name);
    }
    execute(command);
}

bool CommandProcessor::run_transparent(std::wstring_view typed) {
    const CommandName name = parse_command_name(typed);
    if (!is_busy() || !name.transparent) {
        return false;
    }
    const Command command = find(name);
    if (!command.body) {
        person().report(unknown_command(name.name, names()));
    } else if (!command.transparent) {
        person().report(command.name + L" cannot run while another command is active.");
    } else {
        execute(command);
    }
    person().print(L"\nResuming " + running_names() + L" command.");
    return true;
}

bool CommandProcessor::run_built_in(std::wstring_view typed) {
    CommandName name = parse_command_name(typed);
    name.built_in = true;
    const Command command = find(name);
    if (!command.body) {
        return false;
    }
    execute(command);
    return true;
}

void CommandProcessor::execute(const Command& command) {
    const size_t resource_depth = documents_.resource_depth();
    running_.push_back(&command);
    std::wstring problem;
    try {
        command.body();
    } catch (const std::exception& exception) {
        problem = L": " + base::wide_from_utf8(exception.what());
    } catch (...) {  // a module may throw anything; whatever it was, it is reported below
        problem = L" of a kind that the host does not know";
    }
    running_.pop_back();
    if (!problem.empty()) {
        person().report(command.name + L" ended with an exception" + problem);
    }
    if (!documents_.restore_resource_depth(resource_depth)) {
        person().report(command.name + L" left the resource handles unbalanced.");
    }
    if (running_.empty() && ending_) {
        ending_();
    }
}

std::vector<std::wstring> CommandProcessor::own_names() const {
    std::vector<std::wstring> names;
    for (const auto& [name, command] : built_in_) {
        names.push_back(name);
    }
    return names;
}

std::vector<std::wstring> CommandProcessor::names() const {
    std::vector<std::wstring> names = own_names();
    for (const CommandGroup& group : registered_.groups()) {
        for (const RegisteredCommand& command : group.commands) {
            names.push_back(command.local_name);
        }
    }
    return names;
}

std::wstring CommandProcessor::running_names() const {
    std::wstring names;
    for (const Command* command : running_) {
        names += (names.empty() ? L"" : L"'") + command->name;
    }
    return names;
}

bool CommandProcessor::runs_transparent_command() const {
    return std::any_of(running_.begin(), running_.end(), [](const Command* command) { return command->transparent; }) &&
           running_.size() > 1;
}

bool CommandProcessor::runs_function_of(HMODULE library) const {
    return std::any_of(running_.begin(), running_.end(), [&](const Command* command) {
        return command->function != nullptr && is_function_of(library, command->function);
    });
}

}  // namespace host
