#include "platform/host/prompt/command_names.h"

#include <algorithm>
#include <utility>

#include "base/case_folding.h"

namespace host {
namespace {

/// How many letters are to be left out, added, changed, or swapped with the next, to make one text of the other.
size_t differences(std::wstring_view left, std::wstring_view right) {
    std::vector<std::vector<size_t>> table(left.size() + 1, std::vector<size_t>(right.size() + 1));
    for (size_t row = 0; row <= left.size(); ++row) {
        for (size_t column = 0; column <= right.size(); ++column) {
            size_t& least = table[row][column];
            least = row == 0 ? column : row;
            if (row == 0 || column == 0) {
                continue;
            }
            const bool same = left[row - 1] == right[column - 1];
            least = std::min(
                {table[row - 1][column] + 1, table[row][column - 1] + 1, table[row - 1][column - 1] + (same ? 0 : 1)});
            if (row > 1 && column > 1 && left[row - 1] == right[column - 2] && left[row - 2] == right[column - 1]) {
                least = std::min(least, table[row - 2][column - 2] + 1);
            }
        }
    }
    return table[left.size()][right.size()];
}

}  // namespace

CommandName parse_command_name(std::wstring_view typed) {
    constexpr std::wstring_view blanks = L" \t";
    CommandName command;
    size_t at = typed.find_first_not_of(blanks);
    for (; at < typed.size(); ++at) {
        bool* const prefix = typed[at] == L'\''  ? &command.transparent
                             : typed[at] == L'.' ? &command.built_in
                             : typed[at] == L'_' ? &command.global_only
                                                 : nullptr;
        if (prefix == nullptr || std::exchange(*prefix, true)) {
            break;
        }
    }
    if (at < typed.size()) {
        command.name = typed.substr(at, typed.find_last_not_of(blanks) + 1 - at);
    }
    return command;
}

std::wstring completed_name(std::wstring_view typed, std::wstring_view shown, std::vector<std::wstring> names) {
    const size_t prefix = std::min(typed.find_first_not_of(L"'_."), typed.size());
    const std::wstring beginning = base::lower(typed.substr(prefix));
    std::erase_if(names, [&](const std::wstring& name) {
        return beginning.empty() || base::lower(name).substr(0, beginning.size()) != beginning;
    });
    if (names.empty()) {
        return std::wstring(typed);
    }
    std::sort(names.begin(), names.end());
    const auto last = std::find(names.begin(), names.end(), shown.substr(std::min(prefix, shown.size())));
    const bool goes_on = last != names.end() && last + 1 != names.end();
    return std::wstring(typed.substr(0, prefix)) + (goes_on ? *(last + 1) : names.front());
}

std::wstring nearest_name(std::wstring_view typed, const std::vector<std::wstring>& names) {
    constexpr size_t longest = 64;  // of what could be a name at all
    const std::wstring sought = base::lower(typed.substr(0, longest));
    std::wstring nearest;
    size_t fewest = sought.size() / 3 + 1;
    for (const std::wstring& name : names) {
        const size_t different = differences(sought, base::lower(name));
        if (different != 0 && different < fewest) {
            fewest = different;
            nearest = name;
        }
    }
    return nearest;
}

}  // namespace host
