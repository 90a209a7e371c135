// drawinghost: opens a drawing, loads modules, and runs commands for a person or a script.
#include <afxwin.h>

#include <fstream>
#include <iterator>
#include <memory>

#include "base/code_page.h"
#include "platform/host/app/options.h"
#include "platform/host/editor/commands.h"
#include "platform/host/editor/dialog_driver.h"
#include "platform/host/editor/editor.h"
#include "platform/host/editor/main_window.h"
#include "platform/host/editor/script_person.h"
#include "platform/host/editor/script_run.h"

namespace host {
namespace {

constexpr int failure_status = 1;
constexpr int usage_status = 2;

int fail(const std::wstring& line) {
    write_standard_error(line + L"\n");
    return failure_status;
}

/// The editor, and the framework of the modules, know the window for as long as this lives, and its title follows the
/// drawing.
class WindowAttachment final : public AcApDocManagerReactor {
  public:
    explicit WindowAttachment(MainWindow& window) : window_(window) {
        acDocManagerPtr()->addReactor(this);
        main_.Attach(window.window());
        program_.m_pMainWnd = &main_;
        editor().window = &window;
        window.pane().on_new_list(
            [](const dxf::Drawing& drawing, const DisplayList& list) { editor().say_left_out(drawing, list); });
    }
    ~WindowAttachment() override {
        acDocManagerPtr()->removeReactor(this);
        window_.pane().on_new_list({});
        editor().window = nullptr;
        program_.m_pMainWnd = nullptr;
        main_.Detach();
    }
    WindowAttachment(const WindowAttachment&) = delete;
    WindowAttachment& operator=(const WindowAttachment&) = delete;

    void documentActivated(AcApDocument*) override {
        window_.update_title();
        window_.pane().drawing_opened();
    }
    void documentTitleUpdated(AcApDocument*) override { window_.update_title(); }

  private:
    MainWindow& window_;
    CWinApp program_{program_name};
    CWnd main_;
};

/// What the drawing view shows: the space of the open drawing that commands work in.
PaneContent current_content() {
    const Document* const document = editor().documents.document();
    if (document == nullptr) {
        return {};
    }
    const bool model = document->database()->tilemode();
    return {&document->drawing(), document->drawing().edits_made(),
            model ? DisplayList::Space::model : DisplayList::Space::paper};
}

std::wstring current_name() {
    const Document* const document = editor().documents.document();
    return document == nullptr ? L"" : (document->changed() ? L"*" : L"") + std::wstring(document->docTitle());
}

void run_command(const std::wstring& typed) {
    editor().processor.run(typed);
    editor().view()->update();
    for (LONG count = 0; AfxGetApp()->OnIdle(count); ++count) {
    }
}

/// For the window's procedure, which no exception may leave.
bool may_end_session_now() {
    try {
        return may_end_session(editor());
    } catch (const std::exception& exception) {
        person().report(base::wide_from_utf8(exception.what()));
        return false;
    }
}

void run_commands_of_person(MainWindow& window) {
    window.ask_before_session_ends(may_end_session_now);
    while (!editor().quit_requested) {
        const Answer answer = person().prompt(L"\nCommand: ");
        if (answer.kind == Answer::line) {
            run_command(answer.text);
        } else if (window.close_requested()) {
            window.forget_close_request();
            editor().quit_requested = may_leave_drawing(editor()) || window.close_requested();
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
    const DialogDriver driver(run);
    editor().variables.put(L"FILEDIA", 0);
    while (!run.failed() && !run.at_end() && !editor().quit_requested) {
        const Answer answer = person().prompt(L"\nCommand: ");
        if (answer.kind == Answer::line) {
            run_command(answer.text);
        }
    }
    return run.failed() ? base::Outcome<>(base::Failure{run.failure()}) : base::Outcome<>();
}

base::Outcome<> open_drawing_and_modules(const Options& options) {
    base::Outcome<> opened;
    if (!options.drawing.empty()) {
        opened = editor().documents.open(options.drawing);
    }
    for (size_t next = 0; opened && next < options.modules.size(); ++next) {
        opened = editor().modules.load(options.modules[next]);
    }
    return opened ? opened : base::Failure{L"drawinghost: " + opened.reason()};
}

/// From opening the drawing to the last command.
base::Outcome<> work(const Options& options, Script script, MainWindow& window) {
    ScriptRun run(std::move(script));
    const std::unique_ptr<Watchdog> watchdog =
        options.script.empty() ? nullptr : std::make_unique<Watchdog>(run, std::chrono::seconds(options.stall_seconds));
    base::Outcome<> done = open_drawing_and_modules(options);
    if (done && !options.hidden) {
        window.show();
    }
    if (done && options.script.empty()) {
        run_commands_of_person(window);
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
    MainWindow window(current_content, current_name);
    const WindowAttachment attachment(window);
    WindowPerson at_window(window, editor().processor, options.verbose);
    const PersonScope scope(at_window);
    add_session_commands(editor());
    add_file_commands(editor());
    add_drawing_commands(editor());
    add_view_commands(editor());
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
    try {
        return host::run_program(*options);
    } catch (const std::exception& exception) {
        return host::fail(L"drawinghost: " + base::wide_from_utf8(exception.what()));
    }
}
