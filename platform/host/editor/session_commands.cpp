#include "platform/host/editor/commands.h"

#include <windows.h>

#include "platform/host/editor/editor.h"
#include "platform/host/editor/file_question.h"
#include "platform/host/prompt/keywords.h"
#include "platform/host/prompt/person.h"

namespace host {
namespace {

std::wstring ask_text(std::wstring_view prompt) {
    const Answer answer = person().prompt(prompt);
    return answer.kind == Answer::line ? answer.text : std::wstring();
}

void load_module(Editor& editor) {
    const std::optional<std::wstring> file = ask_file_name({L"Load module", L"", L"arx", false, false});
    if (file && succeeded(editor.modules.load(*file))) {
        person().print(L"\n" + *file + L" loaded.");
    }
}

void unload_module(Editor& editor) {
    const std::wstring name = ask_text(L"\nModule to unload: ");
    if (!name.empty() && succeeded(editor.modules.unload(name))) {
        person().print(L"\n" + name + L" unloaded.");
    }
}

void list_modules(const Editor& editor) {
    for (const std::wstring& file : editor.modules.loaded_files()) {
        person().print(L"\n" + file);
    }
}

void list_commands(const Editor& editor) {
    for (const CommandGroup& group : editor.commands.groups()) {
        for (const RegisteredCommand& command : group.commands) {
            person().print(L"\n" + group.name + L": " + command.global_name + L", " + command.local_name + L", " +
                           std::to_wstring(command.flags));
        }
    }
}

void manage_modules(Editor& editor) {
    const std::wstring typed = ask_text(L"\nEnter an option [Files/Commands/Load/Unload]: ");
    const std::wstring option = Keywords(L"Files Commands Load Unload").match(typed);
    if (option == L"Files") {
        list_modules(editor);
    } else if (option == L"Commands") {
        list_commands(editor);
    } else if (option == L"Load") {
        load_module(editor);
    } else if (option == L"Unload") {
        unload_module(editor);
    } else if (!typed.empty()) {
        person().report(L"That is not one of the options.");
    }
}

void set_variable(Editor& editor) {
    const std::wstring name = ask_text(L"\nEnter variable name: ");
    if (name.empty()) {
        return;
    }
    const std::optional<VariableValue> value = editor.variables.get(name);
    if (!value) {
        person().report(L"Unknown variable \"" + name + L"\".");
        return;
    }
    const Answer answer = person().prompt(L"\nEnter new value for " + name + L" <" + format_variable(*value) + L">: ");
    if (answer.kind != Answer::line) {
        return;
    }
    const base::Outcome<> set = editor.variables.set_from_text(name, answer.text);
    if (set) {
        editor.variable_was_set();
    } else {
        person().report(set.reason());
    }
}

/// What modules ask for with acedGetEnv; an empty value takes it away.
void set_environment_value(Editor&) {
    const std::wstring name = ask_text(L"\nEnter name of environment value: ");
    if (name.empty()) {
        return;
    }
    const std::wstring value = ask_text(L"\nEnter new value for " + name + L": ");
    if (SetEnvironmentVariableW(name.c_str(), value.empty() ? nullptr : value.c_str()) == 0) {
        person().report(name + L" could not be set.");
    }
}

}  // namespace

void add_session_commands(Editor& editor) {
    editor.add_command(L"APPLOAD", load_module);
    editor.add_command(L"ARX", manage_modules);
    editor.add_command(L"SETENV", set_environment_value);
    editor.add_command(L"SETVAR", set_variable);
}

}  // namespace host
