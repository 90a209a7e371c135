#include "platform/host/editor/script_words.h"

#include <algorithm>

#include "base/case_folding.h"
#include "platform/host/prompt/input_text.h"

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

struct Name {
    std::wstring_view name;
    int value;
};

constexpr Name modifier_names[] = {{L"ctrl", NamedKey::control}, {L"shift", NamedKey::shift}, {L"alt", NamedKey::alt}};

constexpr Name key_codes[] = {{L"backspace", 0x08}, {L"tab", 0x09},      {L"return", 0x0D}, {L"enter", 0x0D},
                              {L"shift", 0x10},     {L"ctrl", 0x11},     {L"escape", 0x1B}, {L"esc", 0x1B},
                              {L"space", 0x20},     {L"pgup", 0x21},     {L"pgdn", 0x22},   {L"end", 0x23},
                              {L"home", 0x24},      {L"left", 0x25},     {L"up", 0x26},     {L"right", 0x27},
                              {L"down", 0x28},      {L"insert", 0x2D},   {L"delete", 0x2E}, {L"multiply", 0x6A},
                              {L"add", 0x6B},       {L"subtract", 0x6D}, {L"decimal", 0x6E}};

template <size_t count>
std::optional<int> find(const Name (&names)[count], std::wstring_view name) {
    for (const Name& candidate : names) {
        if (candidate.name == name) {
            return candidate.value;
        }
    }
    return std::nullopt;
}

std::optional<int> key_code(std::wstring_view name) {
    if (name.size() == 1) {
        const wchar_t character = name.front();
        if (character >= L'a' && character <= L'z') {
            return character - L'a' + L'A';
        }
        return character >= L'0' && character <= L'9' ? std::optional<int>(character) : std::nullopt;
    }
    if (name.front() == L'f') {
        const std::optional<int> number = parse_integer(name.substr(1));
        constexpr int first_function_key = 0x70;
        if (number && *number >= 1 && *number <= 24) {
            return first_function_key + *number - 1;
        }
    }
    return find(key_codes, name);
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

std::optional<NamedKey> parse_key(std::wstring_view name) {
    const std::wstring lowered = base::lower(name);
    std::wstring_view rest = lowered;
    NamedKey key;
    for (size_t plus = rest.find(L'+'); plus != std::wstring_view::npos; plus = rest.find(L'+')) {
        const std::optional<int> modifier = find(modifier_names, rest.substr(0, plus));
        if (!modifier) {
            return std::nullopt;
        }
        key.modifiers |= static_cast<unsigned>(*modifier);
        rest.remove_prefix(plus + 1);
    }
    const std::optional<int> code = rest.empty() ? std::nullopt : key_code(rest);
    if (!code) {
        return std::nullopt;
    }
    key.virtual_key = *code;
    return key;
}

bool matches_wildcard(std::wstring_view pattern, std::wstring_view text) {
    constexpr size_t none = std::wstring_view::npos;
    size_t at = 0;
    size_t star = none;
    size_t resume = 0;
    for (size_t position = 0; position < text.size();) {
        if (at < pattern.size() && pattern[at] == L'*') {
            star = at++;
            resume = position;
        } else if (at < pattern.size() && pattern[at] == text[position]) {
            ++at;
            ++position;
        } else if (star != none) {
            at = star + 1;
            position = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', at) == none;
}

}  // namespace host
