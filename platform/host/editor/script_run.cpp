#include "platform/host/editor/script_run.h"

namespace host {
namespace {

/// Without the blanks and line ends around it; line ends inside become blanks.
std::wstring one_line(std::wstring_view text) {
    const size_t first = text.find_first_not_of(L" \n");
    const size_t last = text.find_last_not_of(L" \n");
    std::wstring line(first == std::wstring_view::npos ? L"" : text.substr(first, last + 1 - first));
    for (wchar_t& character : line) {
        character = character == L'\n' || character == L'\r' ? L' ' : character;
    }
    return line;
}

std::wstring quoted(std::wstring_view text) {
    return L'"' + one_line(text) + L'"';
}

}  // namespace

ScriptRun::ScriptRun(Script script) : script_(std::move(script)) {}

Answer ScriptRun::answer(std::wstring_view prompt) {
    if (failed()) {
        return {};
    }
    if (at_end()) {
        fail_at_next(L"the script ended, but an answer is needed: " + quoted(prompt));
        return {};
    }
    const ScriptLine& line = script_.lines[next_];
    if (line.action) {
        fail_at_next(L"no dialog is open for this line; an answer is needed: " + quoted(prompt));
        return {};
    }
    take();
    if (line.text == L"^C") {
        return {};
    }
    return {line.text.empty() ? Answer::return_only : Answer::line, line.text};
}

const DialogAction* ScriptRun::action(std::wstring_view dialog) {
    if (failed()) {
        return nullptr;
    }
    if (at_end()) {
        fail_at_next(L"the script ended with a dialog open: " + quoted(dialog));
        return nullptr;
    }
    const ScriptLine& line = script_.lines[next_];
    if (!line.action) {
        fail_at_next(L"a dialog is open, which this line does not drive: " + quoted(dialog));
        return nullptr;
    }
    return &*line.action;
}

void ScriptRun::take_action() {
    take();
}

void ScriptRun::fail(std::wstring_view reason) {
    fail_at(line_taken_, reason);
}

std::wstring ScriptRun::stall_failure(std::wstring_view reason) const {
    return failed() ? failure_ : at_line(line_taken_, reason);
}

std::wstring ScriptRun::at_line(size_t line, std::wstring_view reason) const {
    return L"script " + script_.file + L":" + std::to_wstring(line) + L": " + std::wstring(reason);
}

void ScriptRun::take() {
    line_taken_ = script_.lines[next_].number;
    ++next_;
    ++progress_;
}

void ScriptRun::fail_at(size_t line, std::wstring_view reason) {
    if (!failed()) {
        failure_ = at_line(line, one_line(reason));
        failed_ = true;
    }
}

void ScriptRun::fail_at_next(std::wstring_view reason) {
    const size_t last = script_.lines.empty() ? 0 : script_.lines.back().number;
    fail_at(at_end() ? last : script_.lines[next_].number, reason);
}

}  // namespace host
