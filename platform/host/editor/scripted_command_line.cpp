#include "platform/host/editor/scripted_command_line.h"

#include <windows.h>

#include "platform/host/editor/history.h"
#include "platform/host/editor/script_run.h"

namespace host {
namespace {

/// Painting only. A dialog whose handler asks is up all this time, and must get neither input nor the driver's timer.
void paint_windows() {
    MSG message;
    constexpr int enough = 100;  // a window that never finishes painting holds nobody up
    for (int count = 0; count < enough && PeekMessageW(&message, nullptr, WM_PAINT, WM_PAINT, PM_REMOVE) != 0;
         ++count) {
        DispatchMessageW(&message);
    }
}

}  // namespace

Answer ScriptedCommandLine::prompt(std::wstring_view text) {
    paint_windows();
    history_.print(text);
    Answer answer = run_.answer(text);
    history_.print(answer.kind == Answer::cancel ? L"*Cancel*" : answer.text);
    return answer;
}

void ScriptedCommandLine::print(std::wstring_view text) {
    history_.print(text);
}

void ScriptedCommandLine::report(std::wstring_view problem) {
    history_.print(L"\n" + std::wstring(problem));
    run_.fail(problem);
}

}  // namespace host
