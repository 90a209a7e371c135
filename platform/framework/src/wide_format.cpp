#include "platform/framework/src/wide_format.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cwchar>
#include <string_view>
#include <vector>

#include "base/code_page.h"

namespace framework {
namespace {

enum class Size { kPlain, kShort, kChar, kLong, kLongLong, kLongDouble };

struct Conversion {
    std::string flags;
    int width = 0;
    int precision = -1;
    Size size = Size::kPlain;
    wchar_t kind = 0;

    bool left() const { return flags.find('-') != std::string::npos; }
};

/// The rest of the arguments. va_list is an array on some platforms, so only its address can be handed on.
using Arguments = va_list*;

bool take(const wchar_t*& at, std::wstring_view word) {
    if (std::wcsncmp(at, word.data(), word.size()) != 0) {
        return false;
    }
    at += word.size();
    return true;
}

int take_number(const wchar_t*& at, Arguments arguments) {
    if (take(at, L"*")) {
        return va_arg(*arguments, int);
    }
    int value = 0;
    for (; *at >= L'0' && *at <= L'9'; ++at) {
        value = std::min(value * 10 + (*at - L'0'), 100000);
    }
    return value;
}

Size take_size(const wchar_t*& at) {
    static_assert(sizeof(void*) == sizeof(long long), "sizes and differences are taken as long long");
    struct Name {
        std::wstring_view word;
        Size size;
    };
    static constexpr Name kNames[] = {
        {L"I64", Size::kLongLong}, {L"I32", Size::kPlain},  {L"I", Size::kLongLong}, {L"ll", Size::kLongLong},
        {L"hh", Size::kChar},      {L"h", Size::kShort},    {L"l", Size::kLong},     {L"w", Size::kLong},
        {L"z", Size::kLongLong},   {L"t", Size::kLongLong}, {L"j", Size::kLongLong}, {L"L", Size::kLongDouble},
    };
    for (const Name& name : kNames) {
        if (take(at, name.word)) {
            return name.size;
        }
    }
    return Size::kPlain;
}

/// Reads one conversion after its per cent sign.
Conversion take_conversion(const wchar_t*& at, Arguments arguments) {
    Conversion result;
    for (; *at && std::wcschr(L"-+ #0", *at); ++at) {
        result.flags += static_cast<char>(*at);
    }
    result.width = take_number(at, arguments);
    if (result.width < 0) {
        result.width = -result.width;
        result.flags += '-';
    }
    if (take(at, L".")) {
        result.precision = take_number(at, arguments);
    }
    result.size = take_size(at);
    result.kind = *at;
    if (*at) {
        ++at;
    }
    return result;
}

void append_padded(std::wstring& out, const Conversion& conversion, std::wstring_view text) {
    const size_t width = static_cast<size_t>(conversion.width);
    const size_t padding = width > text.size() ? width - text.size() : 0;
    if (!conversion.left()) {
        out.append(padding, L' ');
    }
    out.append(text);
    if (conversion.left()) {
        out.append(padding, L' ');
    }
}

/// The length of a text that need not end with a null within the precision.
template <typename Character>
size_t bounded_length(const Character* text, int precision) {
    size_t length = 0;
    while ((precision < 0 || length < static_cast<size_t>(precision)) && text[length]) {
        ++length;
    }
    return length;
}

std::wstring bounded(const wchar_t* text, int precision) {
    return {text, bounded_length(text, precision)};
}

std::wstring bounded(const char* text, int precision) {
    return base::wide_from_bytes({text, bounded_length(text, precision)}, base::system_code_page());
}

bool is_narrow(const Conversion& conversion) {
    if (conversion.size == Size::kShort) {
        return true;
    }
    const bool other_width = conversion.kind == L'S' || conversion.kind == L'C';
    return other_width && conversion.size != Size::kLong;
}

void append_text(std::wstring& out, const Conversion& conversion, Arguments arguments) {
    const void* text = va_arg(*arguments, const void*);
    if (!text) {
        append_padded(out, conversion, bounded(L"(null)", conversion.precision));
    } else if (is_narrow(conversion)) {
        append_padded(out, conversion, bounded(static_cast<const char*>(text), conversion.precision));
    } else {
        append_padded(out, conversion, bounded(static_cast<const wchar_t*>(text), conversion.precision));
    }
}

void append_character(std::wstring& out, const Conversion& conversion, Arguments arguments) {
    const int value = va_arg(*arguments, int);
    const char byte = static_cast<char>(value);
    const wchar_t character = is_narrow(conversion) ? base::wide_from_bytes({&byte, 1}, base::system_code_page()).at(0)
                                                    : static_cast<wchar_t>(value);
    append_padded(out, conversion, {&character, 1});
}

/// Lets the C runtime print one number: `kind` with its size prefix, after our flags, width and precision.
template <typename Value>
void append_number(std::wstring& out, const Conversion& conversion, const char* kind, Value value) {
    const std::string format = "%" + conversion.flags + "*.*" + kind;
    std::vector<char> buffer(static_cast<size_t>(conversion.width) +
                             static_cast<size_t>(std::max(conversion.precision, 0)) + 400);
    const int length =
        std::snprintf(buffer.data(), buffer.size(), format.c_str(), conversion.width, conversion.precision, value);
    if (length > 0) {
        out.append(buffer.data(), buffer.data() + std::min(static_cast<size_t>(length), buffer.size() - 1));
    }
}

intmax_t take_signed(Size size, Arguments arguments) {
    switch (size) {
        case Size::kLong:
            return va_arg(*arguments, long);
        case Size::kLongLong:
            return va_arg(*arguments, long long);
        case Size::kShort:
            return static_cast<short>(va_arg(*arguments, int));
        case Size::kChar:
            return static_cast<signed char>(va_arg(*arguments, int));
        default:
            return va_arg(*arguments, int);
    }
}

uintmax_t take_unsigned(Size size, Arguments arguments) {
    switch (size) {
        case Size::kLong:
            return va_arg(*arguments, unsigned long);
        case Size::kLongLong:
            return va_arg(*arguments, unsigned long long);
        case Size::kShort:
            return static_cast<unsigned short>(va_arg(*arguments, int));
        case Size::kChar:
            return static_cast<unsigned char>(va_arg(*arguments, int));
        default:
            return va_arg(*arguments, unsigned int);
    }
}

void append_real(std::wstring& out, const Conversion& conversion, Arguments arguments) {
    const char kind[] = {static_cast<char>(conversion.kind), 0};
    // Windows' long double is a double; elsewhere L takes the larger one, printed as a double.
    const double value = conversion.size == Size::kLongDouble && sizeof(long double) > sizeof(double)
                             ? static_cast<double>(va_arg(*arguments, long double))
                             : va_arg(*arguments, double);
    append_number(out, conversion, kind, value);
}

/// False for a conversion that is not known.
bool append_conversion(std::wstring& out, const Conversion& conversion, Arguments arguments) {
    switch (conversion.kind) {
        case L's':
        case L'S':
            append_text(out, conversion, arguments);
            return true;
        case L'c':
        case L'C':
            append_character(out, conversion, arguments);
            return true;
        case L'd':
        case L'i':
            append_number(out, conversion, "lld", static_cast<long long>(take_signed(conversion.size, arguments)));
            return true;
        case L'u':
        case L'o':
        case L'x':
        case L'X': {
            const char kind[] = {'l', 'l', static_cast<char>(conversion.kind), 0};
            append_number(out, conversion, kind,
                          static_cast<unsigned long long>(take_unsigned(conversion.size, arguments)));
            return true;
        }
        case L'p': {
            Conversion pointer = conversion;
            pointer.precision = 16;
            const auto value = reinterpret_cast<std::uintptr_t>(va_arg(*arguments, void*));
            append_number(out, pointer, "llX", static_cast<unsigned long long>(value));
            return true;
        }
        default:
            if (!conversion.kind || !std::wcschr(L"eEfFgGaA", conversion.kind)) {
                return false;
            }
            append_real(out, conversion, arguments);
            return true;
    }
}

}  // namespace

std::wstring wide_format(const wchar_t* format, va_list arguments) {
    std::wstring result;
    va_list rest;
    va_copy(rest, arguments);
    for (const wchar_t* at = format; *at;) {
        const wchar_t* start = at++;
        if (*start != L'%') {
            result += *start;
        } else if (!take(at, L"%")) {
            const Conversion conversion = take_conversion(at, &rest);
            if (!append_conversion(result, conversion, &rest)) {
                result.append(start, at);
            }
        } else {
            result += L'%';
        }
    }
    va_end(rest);
    return result;
}

}  // namespace framework
