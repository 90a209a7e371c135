#include "platform/host/editor/key_names.h"

#include <string>

#include "base/case_folding.h"
#include "platform/host/editor/script.h"
#include "platform/host/prompt/input_text.h"

namespace host {
namespace {

struct Name {
    std::wstring_view name;
    int value;
};

constexpr Name modifier_names[] = {
    {L"ctrl", DialogAction::control}, {L"shift", DialogAction::shift}, {L"alt", DialogAction::alt}};

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

}  // namespace host
