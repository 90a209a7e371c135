#include "platform/host/editor/typed_command_line.h"

#include "platform/host/editor/history.h"
#include "platform/host/editor/main_window.h"

namespace host {

Answer TypedCommandLine::prompt(std::wstring_view text) {
    history_.print(text);
    Answer answer = window_.wait_for_answer(text);
    history_.print(answer.kind == Answer::cancel ? L"*Cancel*" : answer.text);
    return answer;
}

void TypedCommandLine::print(std::wstring_view text) {
    history_.print(text);
}

void TypedCommandLine::report(std::wstring_view problem) {
    history_.print(L"\n" + std::wstring(problem));
}

}  // namespace host
