// The acedGet... questions.
#include <algorithm>
#include <cwchar>
#include <functional>

#include "acedads.h"
#include "platform/host/editor/editor.h"
#include "platform/host/view/pointer_guide.h"

namespace host {
namespace {

/// Reads a text as the answer; false when it is none.
using Reader = std::function<bool(const std::wstring&)>;

/// Asks until an answer is acceptable. `refusal` tells the user what is expected.
int ask(const ACHAR* prompt, std::wstring_view refusal, const Reader& read) {
    InputRules& kept = editor().input_rules;
    const InputRules rules = kept.take();
    for (;;) {
        const Answer answer = command_line().prompt(prompt != nullptr ? prompt : L"");
        std::wstring keyword;
        const int meaning = rules.classify(answer, keyword);
        if (meaning == RTKWORD) {
            kept.keep_input(keyword);
            return RTKWORD;
        }
        if (meaning == RTCAN || meaning == RTNONE || (meaning == RTNORM && read(answer.text))) {
            return meaning;
        }
        if (meaning == RTNORM && rules.has(RSG_OTHER)) {
            kept.keep_input(answer.text);
            return RTKWORD;
        }
        command_line().report(refusal);
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

PointerGuide guide_from(const ads_point base, PointerGuide::Kind kind) {
    return base == nullptr ? PointerGuide{PointerGuide::Kind::crosshair, {}} : PointerGuide{kind, {base[X], base[Y]}};
}

int ask_point(const ACHAR* prompt, const PointerGuide& guide, ads_point result) {
    const PointerGuideScope scope(guide);
    return ask(prompt, L"A point is needed: x,y or x,y,z.", [&](const std::wstring& text) {
        const std::optional<Point> point = parse_point(text);
        if (point) {
            result[X] = point->x;
            result[Y] = point->y;
            result[Z] = point->z;
        }
        return point.has_value();
    });
}

}  // namespace
}  // namespace host

using host::ask;
using host::editor;
using host::PointerGuide;

int acedInitGet(int value, const ACHAR* keywords) {
    editor().input_rules.set(value, keywords != nullptr ? keywords : L"");
    return RTNORM;
}

int acedGetInput(ACHAR* input) {
    if (input == nullptr) {
        return RTERROR;
    }
    host::copy_text(editor().input_rules.last_input(), input);
    return RTNORM;
}

int acedGetPoint(const ads_point point, const ACHAR* prompt, ads_point result) {
    return host::ask_point(prompt, host::guide_from(point, PointerGuide::Kind::line), result);
}

int acedGetCorner(const ads_point point, const ACHAR* prompt, ads_point result) {
    return host::ask_point(prompt, host::guide_from(point, PointerGuide::Kind::rectangle), result);
}

int acedGetReal(const ACHAR* prompt, ads_real* result) {
    const host::InputRules rules = editor().input_rules;
    return ask(prompt, L"A number is needed.", [&](const std::wstring& text) {
        const std::optional<double> number = host::parse_real(text);
        const bool accepted = number && host::allowed(rules, *number);
        *result = accepted ? *number : *result;
        return accepted;
    });
}

int acedGetInt(const ACHAR* prompt, int* result) {
    const host::InputRules rules = editor().input_rules;
    return ask(prompt, L"A whole number from -32768 to 32767 is needed.", [&](const std::wstring& text) {
        const std::optional<int> number = host::parse_integer(text);
        const bool accepted = number && *number >= -32768 && *number <= 32767 && host::allowed(rules, *number);
        *result = accepted ? *number : *result;
        return accepted;
    });
}

int acedGetString(int, const ACHAR* prompt, ACHAR* result) {
    *result = 0;
    const int outcome = ask(prompt, L"A text is needed.", [&](const std::wstring& text) {
        host::copy_text(text, result);
        return true;
    });
    return outcome == RTNONE ? RTNORM : outcome;
}

int acedGetKword(const ACHAR* prompt, ACHAR* result) {
    const int outcome = ask(prompt, L"That is not one of the options.", [](const std::wstring&) { return false; });
    if (outcome != RTKWORD) {
        return outcome;
    }
    acedGetInput(result);
    return RTNORM;
}
