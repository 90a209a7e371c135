#include "platform/host/editor/script_words.h"

namespace host {
namespace {

constexpr std::wstring_view blanks = L" \t";

wchar_t escaped(wchar_t character) {
    switch (character) {
        case L'n':
            return L'\n';
        case L't':
            return L'\t';
        case L'"':
        case L'\\':
            return character;
        default:
            return 0;
    }
}

/// Takes a quoted word from the text, which begins after its opening quote.
std::optional<std::wstring> take_quoted(std::wstring_view& text, Escapes escapes) {
    std::wstring word;
    for (size_t at = 0; at < text.size(); ++at) {
        if (text[at] == L'"') {
            text.remove_prefix(at + 1);
            const bool ends = text.empty() || blanks.find(text.front()) != std::wstring_view::npos;
            return ends ? std::optional<std::wstring>(std::move(word)) : std::nullopt;
        }
        const bool may_escape = escapes == Escapes::taken && text[at] == L'\\' && at + 1 < text.size();
        const wchar_t special = may_escape ? escaped(text[at + 1]) : L'\0';
        word.push_back(special != 0 ? special : text[at]);
        at += special != 0 ? 1 : 0;
    }
    return std::nullopt;
}

}  // namespace

std::optional<std::vector<ScriptWord>> split_script_words(std::wstring_view line, Escapes escapes) {
    std::vector<ScriptWord> words;
    for (;;) {
        const size_t first = line.find_first_not_of(blanks);
        if (first == std::wstring_view::npos) {
            return words;
        }
        line.remove_prefix(first);
        if (line.front() == L'"') {
            line.remove_prefix(1);
            std::optional<std::wstring> word = take_quoted(line, escapes);
            if (!word) {
                return std::nullopt;
            }
            words.push_back({*std::move(word), true});
        } else {
            const size_t end = std::min(line.find_first_of(blanks), line.size());
            words.push_back({std::wstring(line.substr(0, end)), false});
            line.remove_prefix(end);
        }
    }
}

}  // namespace host
