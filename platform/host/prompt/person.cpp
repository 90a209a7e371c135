#include "platform/host/prompt/person.h"

#include <stdexcept>
#include <utility>

namespace host {
namespace {

Person* seated_now = nullptr;

}  // namespace

std::optional<InputEvent> Person::next_event() {
    for (;;) {
        const Answer answer = prompt(L"");
        if (answer.kind == Answer::cancel) {
            return std::nullopt;
        }
        if (const std::optional<InputEvent> event = parse_input_event(answer.text)) {
            return event;
        }
        report(L"A pointer event is needed: move x,y, pick x,y or return.");
    }
}

bool Person::show_progress(std::wstring_view, double) {
    return true;
}

void Person::draw_vector(const Point&, const Point&, int, bool) {}

void Person::show_selected(const std::vector<dxf::RecordId>&) {}

Person& person() {
    if (seated_now == nullptr) {
        throw std::logic_error("nobody sits at the host");
    }
    return *seated_now;
}

bool succeeded(const base::Outcome<>& outcome) {
    if (!outcome) {
        person().report(outcome.reason());
    }
    return static_cast<bool>(outcome);
}

ShownProgress::ShownProgress(std::wstring action)
    : action_(std::move(action)), watch_([this, seated = seated_now](double part) {
          return seated == nullptr || seated->show_progress(action_, part);
      }) {}

ShownProgress::~ShownProgress() {
    base::ProgressWatch::goes_on(1);
}

PersonScope::PersonScope(Person& seated) : previous_(seated_now) {
    seated_now = &seated;
}

PersonScope::~PersonScope() {
    seated_now = previous_;
}

}  // namespace host
