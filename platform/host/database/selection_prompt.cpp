#include "platform/host/database/selection_prompt.h"

#include <algorithm>
#include <utility>

#include "base/case_folding.h"
#include "platform/host/prompt/input_text.h"

namespace host {
namespace {

struct Word {
    std::wstring_view full;      ///< in lower case
    std::wstring_view shortest;  ///< what of it must be typed at least
};

constexpr Word words[] = {
    {L"window", L"w"},   {L"crossing", L"c"}, {L"box", L"bo"}, {L"all", L"all"}, {L"last", L"l"},
    {L"previous", L"p"}, {L"remove", L"r"},   {L"add", L"a"},  {L"undo", L"u"},
};

/// The full word that the user typed, abbreviated or not and with or without "_"; empty for none.
std::wstring_view recognise(std::wstring_view answer) {
    const std::wstring typed = base::lower(answer.substr(!answer.empty() && answer[0] == L'_' ? 1 : 0));
    for (const Word& word : words) {
        if (typed.size() >= word.shortest.size() && word.full.starts_with(typed)) {
            return word.full;
        }
    }
    return {};
}

PointerGuide::Kind guide_of(std::wstring_view rectangle) {
    if (rectangle == L"box") {
        return PointerGuide::Kind::box;
    }
    return rectangle == L"window" ? PointerGuide::Kind::window : PointerGuide::Kind::crossing;
}

std::optional<AcGePoint3d> read_point(std::wstring_view text) {
    const std::optional<Point> point = parse_point(text);
    return point ? std::optional(AcGePoint3d(point->x, point->y, point->z)) : std::nullopt;
}

}  // namespace

SelectionPrompt::SelectionPrompt(EntitySelector& selector, const SelectionFilter& filter, const dxf::Drawing& drawing,
                                 Person& person, bool single)
    : selector_(selector), filter_(filter), drawing_(drawing), person_(person), single_(single) {}

SelectionPrompt::~SelectionPrompt() {
    if (shown_) {
        person_.show_selected({});
    }
}

bool SelectionPrompt::ask() {
    for (;;) {
        const Answer answer = next_answer();
        if (answer.kind == Answer::cancel) {
            return false;
        }
        if (answer.kind == Answer::return_only) {
            if (selected_.empty()) {
                person_.print(L"\nNothing selected.");
            }
            return true;
        }
        taking_out_ = removing_ || answer.with_shift;
        if (!take_answer(answer)) {
            return false;
        }
        if (single_ && !selected_.empty()) {
            return true;
        }
    }
}

Answer SelectionPrompt::next_answer() {
    if (option_) {
        return *std::exchange(option_, std::nullopt);
    }
    return person_.prompt(removing_ ? L"\nRemove objects: " : L"\nSelect objects: ",
                          {PointerGuide::Kind::pick_box, {}});
}

bool SelectionPrompt::take_answer(const Answer& answer) {
    if (const auto point = read_point(answer.text)) {
        return take_point(*point, answer.reach);
    }
    const std::wstring_view word = recognise(answer.text);
    if (word == L"window" || word == L"crossing" || word == L"box") {
        return take_rectangle(word);
    }
    if (word == L"all") {
        take(selector_.all(SelectionFilter()));
    } else if (word == L"last") {
        take(selector_.last());
    } else if (word == L"previous") {
        take_previous();
    } else if (word == L"remove" || word == L"add") {
        removing_ = word == L"remove";
    } else if (word == L"undo") {
        undo();
    } else {
        refuse();
    }
    return true;
}

bool SelectionPrompt::take_point(const AcGePoint3d& point, double reach) {
    const std::vector<dxf::RecordId> hit = selector_.at_point(point, reach);
    if (hit.empty() && !single_) {
        return take_opposite(point, L"box");
    }
    take(hit);
    return true;
}

SelectionPrompt::Corner SelectionPrompt::ask_corner(std::wstring_view prompt, const PointerGuide& guide,
                                                    AcGePoint3d& corner) {
    const Answer answer = person_.prompt(prompt, guide);
    if (answer.kind == Answer::cancel) {
        return Corner::cancelled;
    }
    if (!recognise(answer.text).empty()) {
        option_ = answer;
        return Corner::none;
    }
    const auto point = answer.kind == Answer::line ? read_point(answer.text) : std::nullopt;
    if (!point) {
        person_.report(L"Invalid point.");
        return Corner::none;
    }
    corner = *point;
    taking_out_ = taking_out_ || answer.with_shift;
    return Corner::given;
}

bool SelectionPrompt::take_rectangle(std::wstring_view kind) {
    AcGePoint3d first;
    const Corner given = ask_corner(L"\nSpecify first corner: ", {PointerGuide::Kind::crosshair, {}}, first);
    return given == Corner::given ? take_opposite(first, kind) : given == Corner::none;
}

bool SelectionPrompt::take_opposite(const AcGePoint3d& first, std::wstring_view kind) {
    AcGePoint3d second;
    const PointerGuide rectangle{guide_of(kind), {first.x, first.y, first.z}};
    const Corner given = ask_corner(L"\nSpecify opposite corner: ", rectangle, second);
    if (given == Corner::given) {
        const bool window = kind == L"window" || (kind == L"box" && second.x >= first.x);
        take(window ? selector_.in_window(first, second) : selector_.crossing(first, second));
    }
    return given != Corner::cancelled;
}

void SelectionPrompt::take_previous() {
    const std::vector<dxf::RecordId> previous = selector_.previous();
    if (previous.empty()) {
        person_.print(L"\nNo previous selection set.");
    } else {
        take(previous);
    }
}

void SelectionPrompt::take(const std::vector<dxf::RecordId>& found) {
    std::vector<dxf::RecordId> accepted;
    accepted.reserve(found.size());
    std::copy_if(found.begin(), found.end(), std::back_inserter(accepted),
                 [this](dxf::RecordId record) { return filter_.accepts(drawing_, record); });
    std::vector<dxf::RecordId> changed = taking_out_ ? selected_.remove(accepted) : selected_.add(accepted);
    print_result(accepted.size(), changed.size());
    const size_t filtered = found.size() - accepted.size();
    if (filtered != 0) {
        person_.print(L"\n" + std::to_wstring(filtered) + (filtered == 1 ? L" was" : L" were") + L" filtered out.");
    }
    steps_.push_back({taking_out_, std::move(changed)});
    show();
}

void SelectionPrompt::print_result(size_t found, size_t changed) {
    std::wstring text = L"\n" + std::to_wstring(found) + L" found";
    if (taking_out_) {
        text += L", " + std::to_wstring(changed) + L" removed";
    } else if (changed != found) {
        text += L" (" + std::to_wstring(found - changed) + (found - changed == 1 ? L" duplicate)" : L" duplicates)");
    }
    if (!steps_.empty()) {
        text += L", " + std::to_wstring(selected_.records().size()) + L" total";
    }
    person_.print(text);
}

void SelectionPrompt::undo() {
    if (steps_.empty()) {
        person_.print(L"\nEverything has been undone.");
        return;
    }
    const Step step = std::move(steps_.back());
    steps_.pop_back();
    if (step.removed) {
        selected_.add(step.records);
    } else {
        selected_.remove(step.records);
    }
    show();
}

void SelectionPrompt::show() {
    shown_ = true;
    person_.show_selected(selected_.records());
}

void SelectionPrompt::refuse() {
    person_.report(L"*Invalid selection*\nExpects a point or Window/Last/Crossing/BOX/ALL/Add/Remove/Previous/Undo");
}

}  // namespace host
