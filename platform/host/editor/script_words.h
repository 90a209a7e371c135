// The words of one "@" line of a script: bare ones and quoted texts, names of keys, patterns of alerts.
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

struct NamedKey {
    enum Modifier : unsigned { control = 1, shift = 2, alt = 4 };
    int virtual_key = 0;  ///< a Windows virtual-key code
    unsigned modifiers = 0;
};

/// "RETURN", "CTRL+A", "SHIFT+F10": names and modifiers in any case; a single letter or digit is its own name.
std::optional<NamedKey> parse_key(std::wstring_view name);

/// True when the whole text fits the pattern, in which "*" stands for any run of characters. Case matters. Linear but
/// for the tail after each "*".
bool matches_wildcard(std::wstring_view pattern, std::wstring_view text);

}  // namespace host
