#include "base/case_folding.h"

#include <algorithm>

#ifdef _WIN32
#include <windows.h>
#else
#include <clocale>
#include <cwctype>
#endif

namespace base {
namespace {

#ifdef _WIN32
wchar_t lower_beyond_ascii(wchar_t character) {
    // A pointer below 0x10000 means one character, returned the same way.
    auto argument = reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(character));
    return static_cast<wchar_t>(reinterpret_cast<ULONG_PTR>(CharLowerW(argument)));
}
#else
wchar_t lower_beyond_ascii(wchar_t character) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    return unicode == nullptr ? character : static_cast<wchar_t>(towlower_l(static_cast<wint_t>(character), unicode));
}
#endif

}  // namespace

wchar_t to_lower(wchar_t character) {
    if (character < 0x80) {
        return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character + 32) : character;
    }
    // Its lower case is i only in some languages, and the systems differ.
    constexpr wchar_t dotted_capital_i = 0x0130;
    return character == dotted_capital_i ? character : lower_beyond_ascii(character);
}

std::wstring lower(std::wstring_view text) {
    std::wstring result(text);
    lower_in_place(result.data(), result.size());
    return result;
}

void lower_in_place(wchar_t* text, size_t length) {
    std::transform(text, text + length, text, to_lower);
}

int compare_ignoring_case(std::wstring_view left, std::wstring_view right) {
    const size_t common = std::min(left.size(), right.size());
    for (size_t i = 0; i < common; ++i) {
        if (left[i] == right[i]) {
            continue;
        }
        const wchar_t a = to_lower(left[i]);
        const wchar_t b = to_lower(right[i]);
        if (a != b) {
            return a < b ? -1 : 1;
        }
    }
    if (left.size() == right.size()) {
        return 0;
    }
    return left.size() < right.size() ? -1 : 1;
}

}  // namespace base
