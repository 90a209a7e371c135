#include "platform/host/editor/command_name.h"

namespace host {

CommandName parse_command_name(std::wstring_view typed) {
    constexpr std::wstring_view blanks = L" \t";
    CommandName command;
    size_t at = typed.find_first_not_of(blanks);
    for (; at < typed.size(); ++at) {
        bool* prefix = nullptr;
        switch (typed[at]) {
            case L'\'':
                prefix = &command.transparent;
                break;
            case L'.':
                prefix = &command.built_in;
                break;
            case L'_':
                prefix = &command.global_only;
                break;
            default:
                break;
        }
        if (prefix == nullptr || *prefix) {
            break;
        }
        *prefix = true;
    }
    if (at < typed.size()) {
        command.name = typed.substr(at, typed.find_last_not_of(blanks) + 1 - at);
    }
    return command;
}

}  // namespace host
