#include "platform/host/editor/scripted_command_line.h"

#include <windows.h>

#include "platform/host/editor/history.h"
#include "platform/host/editor/script_run.h"

namespace host {
namespace {

void dispatch_waiting_messages() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace

Answer ScriptedCommandLine::prompt(std::wstring_view text) {
    dispatch_waiting_messages();
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
