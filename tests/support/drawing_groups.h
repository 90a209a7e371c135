// Builds drawings as text from their groups.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

/// "0 LINE|8 walls|10 1.5" as the groups of a drawing; codes are padded with blanks to a width.
inline std::string groups(std::string_view text, size_t code_width = 0) {
    std::string bytes;
    while (!text.empty()) {
        const std::string_view group = text.substr(0, text.find('|'));
        text.remove_prefix(std::min(text.size(), group.size() + 1));
        const size_t blank = group.find(' ');
        const std::string code(group.substr(0, blank));
        bytes += std::string(code_width - std::min(code_width, code.size()), ' ') + code + "\n";
        bytes += std::string(blank == std::string_view::npos ? "" : group.substr(blank + 1)) + "\n";
    }
    return bytes;
}

inline std::string section(std::string_view name, const std::string& contents) {
    return groups("0 SECTION|2 " + std::string(name)) + contents + groups("0 ENDSEC");
}

/// A table of entries given by their groups behind code 0.
inline std::string table(const std::string& name, const std::vector<std::string>& entries) {
    std::string bytes = groups("0 TABLE|2 " + name + "|70 " + std::to_string(entries.size()));
    for (const std::string& entry : entries) {
        bytes += groups("0 " + name + "|" + entry);
    }
    return bytes + groups("0 ENDTAB");
}

inline std::string end_of_file() {
    return groups("0 EOF");
}
