// What commands ask of the person (the acedGet... questions, acedGrRead), and what they show (acedGrDraw).
#include <algorithm>
#include <cwchar>
#include <functional>
#include <utility>

#include "acedads.h"
#include "platform/host/prompt/keywords.h"
#include "platform/host/prompt/person.h"

namespace host {
namespace {

/// What acedInitGet sets for one question.
struct InputRules {
    int flags = 0;
    Keywords keywords;

    bool has(int flag) const { return (flags & flag) != 0; }
};

InputRules next_rules;
/// The keyword or text of the last question that gave RTKWORD.
std::wstring last_input;

/// What an answer means before it is read as a number or a point: RTCAN for a cancel; RTNONE for Return where that is
/// allowed, else RTERROR; RTKWORD for a keyword, which is in last_input then; RTNORM for a text that is still to be
/// read.
int classify(const Answer& answer, const InputRules& rules) {
    if (answer.kind == Answer::cancel) {
        return RTCAN;
    }
    if (answer.kind == Answer::return_only) {
        return rules.has(RSG_NONULL) ? RTERROR : RTNONE;
    }
    std::wstring keyword = rules.keywords.match(answer.text);
    if (keyword.empty()) {
        return RTNORM;
    }
    last_input = std::move(keyword);
    return RTKWORD;
}

/// Reads a text as the answer; false when the text is no answer.
using Reader = std::function<bool(const std::wstring&)>;

/// Asks until an answer is acceptable. `refusal` tells the user what is expected.
int ask(const ACHAR* prompt, std::wstring_view refusal, const Reader& read, const PointerGuide& guide = {}) {
    const InputRules rules = std::exchange(next_rules, {});
    for (;;) {
        const Answer answer = person().prompt(prompt != nullptr ? prompt : L"", guide);
        const int meaning = classify(answer, rules);
        if (meaning != RTERROR && (meaning != RTNORM || read(answer.text))) {
            return meaning;
        }
        if (meaning == RTNORM && rules.has(RSG_OTHER)) {
            last_input = answer.text;
            return RTKWORD;
        }
        person().report(refusal);
    }
}

bool allowed(const InputRules& rules, double number) {
    return !(rules.has(RSG_NOZERO) && number == 0) && !(rules.has(RSG_NONEG) && number < 0);
}

constexpr size_t input_buffer_size = 133;

void copy_text(const std::wstring& text, ACHAR* buffer) {
    const size_t length = std::min(text.size(), input_buffer_size - 1);
    std::copy_n(text.begin(), length, buffer);
    buffer[length] = 0;
}

void copy_point(const Point& point, ads_point result) {
    result[X] = point.x;
    result[Y] = point.y;
    result[Z] = point.z;
}

PointerGuide guide_from(const ads_point base, PointerGuide::Kind kind) {
    return base == nullptr ? PointerGuide{PointerGuide::Kind::crosshair, {}}
                           : PointerGuide{kind, {base[X], base[Y], base[Z]}};
}

int ask_point(const ACHAR* prompt, const PointerGuide& guide, ads_point result) {
    const auto read = [&](const std::wstring& text) {
        const std::optional<Point> point = parse_point(text);
        if (point) {
            copy_point(*point, result);
        }
        return point.has_value();
    };
    return ask(prompt, L"A point is needed: x,y or x,y,z.", read, guide);
}

}  // namespace
}  // namespace host

using host::ask;
using host::PointerGuide;

int acedInitGet(int value, const ACHAR* keywords) {
    host::next_rules = {value, host::Keywords(keywords != nullptr ? keywords : L"")};
    return RTNORM;
}

int acedGetInput(ACHAR* input) {
    if (input == nullptr) {
        return RTERROR;
    }
    host::copy_text(host::last_input, input);
    return RTNORM;
}

int acedGetPoint(const ads_point point, const ACHAR* prompt, ads_point result) {
    return host::ask_point(prompt, host::guide_from(point, PointerGuide::Kind::line), result);
}

int acedGetCorner(const ads_point point, const ACHAR* prompt, ads_point result) {
    return host::ask_point(prompt, host::guide_from(point, PointerGuide::Kind::rectangle), result);
}

int acedGetReal(const ACHAR* prompt, ads_real* result) {
    const host::InputRules rules = host::next_rules;
    return ask(prompt, L"A number is needed.", [&](const std::wstring& text) {
        const std::optional<double> number = host::parse_real(text);
        const bool accepted = number && host::allowed(rules, *number);
        *result = accepted ? *number : *result;
        return accepted;
    });
}

int acedGetKword(const ACHAR* prompt, ACHAR* result) {
    const int outcome = ask(prompt, L"That is not one of the options.", [](const std::wstring&) { return false; });
    if (outcome != RTKWORD) {
        return outcome;
    }
    acedGetInput(result);
    return RTNORM;
}

int acedGrRead(int track, int* type, struct resbuf* result) {
    constexpr int report_movement = 1;
    constexpr int no_cancel_message = 8;
    for (;;) {
        const std::optional<host::InputEvent> event = host::person().next_event();
        if (!event) {
            if ((track & no_cancel_message) == 0) {
                host::person().print(L"\n*Cancel*\n");
            }
            return RTCAN;
        }
        if (event->kind == host::InputEvent::move && (track & report_movement) == 0) {
            continue;
        }
        if (event->kind == host::InputEvent::key) {
            *type = ACED_GR_KEYBOARD;
            result->restype = RTSHORT;
            result->resval.rint = static_cast<short>(event->character);
        } else {
            *type = event->kind == host::InputEvent::move ? ACED_GR_MOVE : ACED_GR_PICK;
            result->restype = RT3DPOINT;
            host::copy_point(event->point, result->resval.rpoint);
        }
        return RTNORM;
    }
}

int acedGrDraw(const ads_point from, const ads_point to, int colour, int highlight) {
    host::person().draw_vector({from[X], from[Y], from[Z]}, {to[X], to[Y], to[Z]}, colour, highlight != 0);
    return RTNORM;
}
