// drawinghost: opens a drawing, loads modules, and runs commands for a person or a script.
#include <afxwin.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "base/code_page.h"
#include "platform/host/app/options.h"
#include "platform/host/app/window_attachment.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/dialog_driver.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/editor/script.h"
#include "platform/host/editor/window_person.h"

namespace host {
namespace {

constexpr int failure_status = 1;
constexpr int usage_status = 2;

int fail(const std::wstring& line) {
    write_standard_error(line + L"\n");
    return failure_status;
}

void run_command(const std::wstring& typed) {
    const uint64_t selection = editor().selection.changes();
    editor().processor.run(typed);
    if (selection == editor().selection.changes() && !parse_command_name(typed).transparent) {
        editor().selection.clear();  // the command has had it
    }
    person().show_selected(editor().selection.records());
    editor().view()->update();
    for (LONG count = 0; AfxGetApp()->OnIdle(count); ++count) {
    }
}

void run_commands_of_person(MainWindow& window) {
    while (!editor().quit_requested) {
        const Answer answer = person().prompt(L"\nCommand: ");
        if (answer.kind == Answer::line) {
            run_command(answer.text);
        } else if (window.close_requested()) {
            window.forget_close_request();
            editor().quit_requested = may_leave_drawing(editor()) || window.close_requested();
        } else if (answer.kind == Answer::cancel) {
            editor().selection.clear();
            person().show_selected({});
        }
    }
}

/// Reads the script before anything else is done: a misspelt one changes nothing.
base::Result<Script> read_script_file(const std::wstring& path) {
    std::ifstream file(std::filesystem::path(path), std::ios::binary);
    if (!file) {
        return base::Failure{L"drawinghost: " + path + L": the script could not be opened"};
    }
    const std::string bytes{std::istreambuf_iterator<char>(file), {}};
    base::Result<Script, ScriptFault> script = read_script(bytes, path);
    if (!script) {
        const ScriptFault& fault = script.reason();
        return base::Failure{L"script " + path + L":" + std::to_wstring(fault.line) + L": " + fault.reason};
    }
    return *std::move(script);
}

base::Outcome<> run_script(ScriptRun& run, MainWindow& window, bool verbose) {
    ScriptPerson script(run, window, editor().processor, verbose);
    const PersonScope scope(script);
    const DialogDriver driver(run, window);
    editor().variables.put(L"FILEDIA", 0);
    while (!run.failed() && !run.at_end() && !editor().quit_requested) {
        const Answer answer = person().prompt(L"\nCommand: ");
        if (answer.kind == Answer::line) {
            run_command(answer.text);
        }
    }
    return run.failed() ? base::Outcome<>(base::Failure{run.failure()}) : base::Outcome<>();
}

/// The lines of drawinghost.rx beside the program, where there is one: modules that a person's host always loads.
std::vector<std::wstring> modules_of_program() {
    wchar_t program[MAX_PATH];
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    std::ifstream file(std::filesystem::path(program).replace_extension(L".rx"), std::ios::binary);
    std::vector<std::wstring> modules;
    for (std::string line; std::getline(file, line);) {
        line.erase(line.find_last_not_of("\r ") + 1);
        if (!line.empty()) {
            modules.push_back(base::wide_from_utf8(line));
        }
    }
    return modules;
}

base::Outcome<> open_drawing_and_modules(const Options& options) {
    std::vector<std::wstring> modules = options.script.empty() ? modules_of_program() : std::vector<std::wstring>();
    modules.insert(modules.end(), options.modules.begin(), options.modules.end());
    base::Outcome<> opened;
    if (!options.drawing.empty()) {
        opened = editor().documents.open(options.drawing);
    }
    for (size_t next = 0; opened && next < modules.size(); ++next) {
        opened = editor().modules.load(modules[next]);
    }
    return opened ? opened : base::Failure{L"drawinghost: " + opened.reason()};
}

/// From opening the drawing to the last command.
base::Outcome<> work(const Options& options, Script script, MainWindow& window) {
    ScriptRun run(std::move(script));
    const std::unique_ptr<Watchdog> watchdog =
        options.script.empty() ? nullptr : std::make_unique<Watchdog>(run, std::chrono::seconds(options.stall_seconds));
    const bool for_person = options.script.empty();
    if (for_person) {
        editor().settings.use(UserSettings::usual_file());
    }
    if (!options.hidden) {
        window.show(editor().settings.settings().place);  // before all else: what is typed from now on is not lost
    }
    base::Outcome<> done = open_drawing_and_modules(options);
    if (done && for_person) {
        run_commands_of_person(window);
        succeeded(editor().settings.change([&](WindowSettings& known) { known.place = window.place(); }));
    } else if (done) {
        done = run_script(run, window, options.verbose);
    }
    editor().documents.close();
    editor().modules.quit();
    return done;
}

/// Everything between the first look at the arguments and the end; the exit status.
int run_program(const Options& options) {
    base::Result<Script> script = options.script.empty() ? Script() : read_script_file(options.script);
    if (!script) {
        return fail(script.reason());
    }
    if (!options.script.empty() && !options.drawing.empty()) {
        editor().documents.begin_to_open(options.drawing);  // the first window of a session may take a while
    }
    MainWindow window(program_of_editor());
    const WindowAttachment attachment(window);
    WindowPerson at_window(window, editor().processor, options.verbose);
    const PersonScope scope(at_window);
    add_session_commands(editor());
    add_file_commands(editor());
    add_drawing_commands(editor());
    add_view_commands(editor());
    add_help_commands(editor());
    const base::Outcome<> done = work(options, *std::move(script), window);
    return done ? 0 : fail(done.reason());
}

}  // namespace
}  // namespace host

int wmain(int count, wchar_t** arguments) {
    const base::Result<host::Options> options = host::read_options({arguments + 1, arguments + count});
    if (!options || options->help) {
        host::write_standard_error((options ? L"" : L"drawinghost: " + options.reason() + L"\n") + host::usage);
        return options ? 0 : host::usage_status;
    }
    if (options->version) {
        host::write_standard_error(std::wstring(host::program_name) + L" " + host::program_version + L"\n");
        return 0;
    }
    try {
        return host::run_program(*options);
    } catch (const std::exception& exception) {
        return host::fail(L"drawinghost: " + base::wide_from_utf8(exception.what()));
    }
}
