#include "platform/host/editor/window_person.h"

#include "base/code_page.h"
#include "platform/host/editor/command_processor.h"
#include "platform/host/editor/main_window.h"

namespace host {

Answer WindowPerson::prompt(std::wstring_view text, const PointerGuide& guide) {
    for (;;) {
        print(text);
        Answer answer = take_answer(text, guide);
        print(answer.kind == Answer::cancel ? L"*Cancel*" : answer.text);
        if (answer.kind != Answer::line || !processor_.run_transparent(answer.text)) {
            return answer;
        }
    }
}

Answer WindowPerson::take_answer(std::wstring_view text, const PointerGuide& guide) {
    return window_.wait_for_answer(text, guide);
}

std::optional<InputEvent> WindowPerson::next_event() {
    return window_.wait_for_event();
}

void WindowPerson::print(std::wstring_view text) {
    window_.append_history(text);
    if (echo_) {
        write_standard_error(text);
    }
}

void WindowPerson::report(std::wstring_view problem) {
    print(L"\n" + std::wstring(problem));
}

void WindowPerson::draw_vector(const Point& from, const Point& to, int colour, bool highlight) {
    window_.pane().draw_vector({{from.x, from.y}, {to.x, to.y}, colour, highlight});
}

bool WindowPerson::show_progress(std::wstring_view action, double part) {
    return window_.show_progress(action, part);
}

void WindowPerson::show_selected(const std::vector<dxf::RecordId>& entities) {
    window_.show_selected(entities);
}

bool WindowPerson::has_typed_ahead() const {
    return window_.has_typed_ahead();
}

void write_standard_error(std::wstring_view text) {
    const std::string bytes = base::utf8_from_wide(text);
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
}

}  // namespace host
