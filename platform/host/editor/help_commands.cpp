#include <algorithm>
#include <iterator>

#include "platform/host/editor/commands.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/prompt/person.h"

namespace host {
namespace {

struct Help {
    const wchar_t* command;
    const wchar_t* what;
};

// The host's commands, and those of the modules that come with it.
constexpr Help of_commands[] = {
    {L"ABOUT", L"the program and its version"},
    {L"AI_SELALL", L"select all objects"},
    {L"APPLOAD", L"load a module"},
    {L"ARX", L"list, load and unload modules"},
    {L"BACKGROUND", L"a black or white background for the drawing"},
    {L"CLOSE", L"close the drawing"},
    {L"ERASE", L"erase objects"},
    {L"HELP", L"this list; also by F1"},
    {L"INSERT", L"insert a reference to a block"},
    {L"LAYERS", L"switch, freeze and lock layers"},
    {L"OPEN", L"open a drawing"},
    {L"PAGEOUT", L"save the last bill beside the drawing, as a page for browsers"},
    {L"-PAGEOUT", L"the same, with a picture that was saved before"},
    {L"PAGEVIEW", L"keep the drawing as it looks now, for its next page"},
    {L"PAN", L"move the view; also by dragging with the middle mouse button"},
    {L"PNGDETAIL", L"save a picture of where most of the drawing is"},
    {L"PNGOUT", L"save a picture of the drawing"},
    {L"QSAVE", L"save the drawing"},
    {L"QUIT", L"leave the program"},
    {L"READAHEAD", L"begin to read the drawing that is opened next, while other commands run"},
    {L"REDRAW", L"draw the view anew"},
    {L"REGEN", L"draw the view anew"},
    {L"SAVE", L"save the drawing, or a copy of it under another name"},
    {L"SAVEAS", L"save the drawing under another name"},
    {L"SETENV", L"set an environment value, which modules ask for"},
    {L"SETVAR", L"set a system variable"},
    {L"SVGOUT", L"save the drawing as SVG, for browsers"},
    {L"TEXTSCR", L"make this history larger or smaller; also by F2"},
    {L"U", L"undo what the last command did to the drawing"},
    {L"UNDO", L"undo what the last command did to the drawing"},
    {L"ZOOM", L"change what part of the drawing is seen; also by the mouse wheel"},
};

constexpr const wchar_t* of_keys[] = {
    L"Tab completes a command's name; Up and Down go through the lines that were typed.",
    L"Enter, or the right mouse button, ends a line; Enter alone takes what is proposed in <>.",
    L"Escape cancels. A command with ' before its name runs while another one waits.",
};

std::wstring line_of(const std::wstring& name, const std::wstring& what) {
    return L"\n" + name + (what.empty() ? L"" : L": ") + what;
}

/// Empty for a command that is not known here.
std::wstring help_of(const std::wstring& name) {
    const auto* const help = std::find_if(std::begin(of_commands), std::end(of_commands),
                                          [&](const Help& entry) { return entry.command == name; });
    return help == std::end(of_commands) ? L"" : help->what;
}

/// Tells where a module's command is: the menu that has it, or the group that it was added to.
std::wstring place_of(const Editor& editor, const RegisteredCommand& command, const CommandGroup& group) {
    const std::wstring place = editor.window != nullptr ? editor.window->menu().place_of(command.local_name) : L"";
    return place.empty() ? L"a module's, of the group " + group.name : L"in the menu, " + place;
}

void print_help(Editor& editor) {
    for (const std::wstring& name : editor.processor.own_names()) {
        person().print(line_of(name, help_of(name)));
    }
    for (const CommandGroup& group : editor.commands.groups()) {
        for (const RegisteredCommand& command : group.commands) {
            const std::wstring what = help_of(command.local_name);
            person().print(line_of(command.local_name, what.empty() ? place_of(editor, command, group) : what));
        }
    }
    for (const wchar_t* const line : of_keys) {
        person().print(std::wstring(L"\n") + line);
    }
    if (editor.window != nullptr) {
        editor.window->show_large_history(true);
    }
}

void resize_history(Editor& editor) {
    if (editor.window != nullptr) {
        editor.window->show_large_history(!editor.window->shows_large_history());
    }
}

void tell_version(Editor& editor) {
    const std::wstring text = std::wstring(program_name) + L" " + program_version;
    person().print(L"\n" + text);
    if (!person().is_script()) {
        editor.message_box(text.c_str(), MB_OK | MB_ICONINFORMATION);
    }
}

}  // namespace

void add_help_commands(Editor& editor) {
    editor.add_command(L"ABOUT", tell_version, true);
    editor.add_command(L"HELP", print_help, true);
    editor.add_command(L"TEXTSCR", resize_history, true);
}

}  // namespace host
