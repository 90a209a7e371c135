#include "platform/host/editor/input_rules.h"

#include "acedads.h"

namespace host {

void InputRules::set(int flags, std::wstring_view keywords) {
    flags_ = flags;
    keywords_ = Keywords(keywords);
}

InputRules InputRules::take() {
    InputRules taken = *this;
    set(0, {});
    return taken;
}

int InputRules::classify(const Answer& answer, std::wstring& keyword) const {
    switch (answer.kind) {
        case Answer::cancel:
            return RTCAN;
        case Answer::return_only:
            return has(RSG_NONULL) ? RTERROR : RTNONE;
        case Answer::line:
            break;
    }
    keyword = keywords_.match(answer.text);
    return keyword.empty() ? RTNORM : RTKWORD;
}

}  // namespace host
