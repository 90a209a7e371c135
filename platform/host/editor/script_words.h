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

/// Whether backslashes in quotes mean something: file names are full of them, and texts need line ends.
enum class Escapes { none, taken };

/// Splits at blanks. In quotes, where escapes are taken, \" is a quote, \\ a backslash, \n a line feed, \t a tab; any
/// other backslash is itself. Nothing when a quote is not closed or is followed by something else than a blank.
std::optional<std::vector<ScriptWord>> split_script_words(std::wstring_view line, Escapes escapes);

}  // namespace host
