// Hebrew that can be read in a test: capital Latin letters stand for the Hebrew letters from alef on.
#pragma once

#include <string>
#include <string_view>

constexpr wchar_t alef = 0x5D0;

inline std::wstring hebrew(std::wstring_view capitals) {
    std::wstring text(capitals);
    for (wchar_t& character : text) {
        if (character >= L'A' && character <= L'Z') {
            character = static_cast<wchar_t>(alef + (character - L'A'));
        }
    }
    return text;
}

inline std::wstring capitals(std::wstring_view text) {
    std::wstring readable(text);
    for (wchar_t& character : readable) {
        if (character >= alef && character < alef + 26) {
            character = static_cast<wchar_t>(L'A' + (character - alef));
        }
    }
    return readable;
}
