// The words of one "@" line of a script: bare ones and quoted texts.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace host {

struct ScriptWord {
    std::wstring text;
    bool quoted = false;
};

/// Splits at blanks. In quotes \" is a quote, \\ a backslash, \n a line feed, \t a tab; any other backslash is itself.
/// Nothing when a quote is not closed or is followed by something else than a blank.
std::optional<std::vector<ScriptWord>> split_script_words(std::wstring_view line);

}  // namespace host
