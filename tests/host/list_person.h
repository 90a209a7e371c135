// ListPerson: a person at the host who answers from a list.
#pragma once

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "platform/host/prompt/person.h"

namespace host {

/// Sits at the host for as long as it lives. "" is Return, "shift+" begins a point that is picked with that key, "^C"
/// cancels all that follows, and so does the end of the list.
class ListPerson : public Person {
  public:
    explicit ListPerson(std::deque<std::wstring> answers = {}) : answers_(std::move(answers)), scope_(*this) {}

    Answer prompt(std::wstring_view text, const PointerGuide&) override {
        said += L"<" + std::wstring(text) + L">";
        if (answers_.empty() || answers_.front() == L"^C") {
            return {};
        }
        std::wstring text_given = std::move(answers_.front());
        answers_.pop_front();
        const bool shifted = text_given.compare(0, 6, L"shift+") == 0;
        return {text_given.empty() ? Answer::return_only : Answer::line, text_given.substr(shifted ? 6 : 0), shifted};
    }
    void print(std::wstring_view text) override { said += text; }
    void report(std::wstring_view problem) override { said += L"!" + std::wstring(problem); }
    void show_selected(const std::vector<dxf::RecordId>& entities) override { selected = entities; }
    bool is_script() const override { return true; }
    bool has_more() const { return !answers_.empty(); }

    std::wstring said;  ///< prompts as "<...>", messages with "!" before them
    std::vector<dxf::RecordId> selected;

  private:
    std::deque<std::wstring> answers_;
    PersonScope scope_;
};

}  // namespace host
