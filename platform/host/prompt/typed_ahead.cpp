#include "platform/host/prompt/typed_ahead.h"

#include <utility>

namespace host {

namespace {

constexpr int most_cancelled = 20;  ///< prompts of commands within commands

}  // namespace

void TypedAhead::add(std::wstring_view command) {
    for (bool begins = true;; begins = false) {
        const size_t end = command.find(L'\n');
        lines_.push_back({std::wstring(command.substr(0, end)), begins});
        if (end == std::wstring_view::npos) {
            return;
        }
        command.remove_prefix(end + 1);
    }
}

void TypedAhead::drop_answers() {
    while (!lines_.empty() && !lines_.front().begins) {
        lines_.pop_front();
    }
}

std::optional<Answer> TypedAhead::next(bool busy) {
    if (!busy) {
        drop_answers();
    }
    if (!lines_.empty() && busy && lines_.front().begins && !lines_.front().text.starts_with(L'\'')) {
        if (++cancelled_ <= most_cancelled) {
            return Answer{};
        }
        lines_.pop_front();
        drop_answers();
    }
    cancelled_ = 0;
    if (lines_.empty()) {
        return std::nullopt;
    }
    std::wstring text = std::move(lines_.front().text);
    lines_.pop_front();
    return Answer{text.empty() ? Answer::return_only : Answer::line, text};
}

}  // namespace host
