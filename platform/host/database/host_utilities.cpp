// The interface's memory functions and acutPrintf, which need no drawing.
#include <cstdarg>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <string>

#include "acutads.h"
#include "acutmem.h"
#include "platform/host/prompt/person.h"

namespace {

/// Formats by the platform's C runtime: on Windows %s in a wide format stands for a wide text.
int format_into(std::wstring& buffer, const ACHAR* format, va_list arguments) {
#if defined(_WIN32)
    return _vsnwprintf(buffer.data(), buffer.size(), format, arguments);
#else
    // NOLINTNEXTLINE(clang-analyzer-valist.Uninitialized): the caller started it
    return std::vswprintf(buffer.data(), buffer.size(), format, arguments);
#endif
}

constexpr size_t usual_length = 1024;
constexpr size_t longest = size_t{1} << 24;

}  // namespace

void* acad_malloc(size_t size) {
    return std::malloc(size);
}

void* acad_calloc(size_t count, size_t size) {
    return std::calloc(count, size);
}

void acad_free(void* memory) {
    std::free(memory);
}

ACHAR* acad__strdup(const ACHAR* text) {
    if (text == nullptr) {
        return nullptr;
    }
    const size_t bytes = (std::wcslen(text) + 1) * sizeof(ACHAR);
    auto* const copy = static_cast<ACHAR*>(acad_malloc(bytes));
    if (copy != nullptr) {
        std::memcpy(copy, text, bytes);
    }
    return copy;
}

void acutDelString(ACHAR*& text) {
    acad_free(text);
    text = nullptr;
}

int acutPrintf(const ACHAR* format, ...) {
    if (format == nullptr) {
        return RTERROR;
    }
    int length = -1;
    std::wstring text;
    for (size_t size = usual_length; length < 0 && size <= longest; size *= 4) {
        text.resize(size);
        va_list arguments;
        va_start(arguments, format);
        length = format_into(text, format, arguments);
        va_end(arguments);
    }
    if (length < 0) {
        return RTERROR;
    }
    text.resize(static_cast<size_t>(length));
    host::person().print(text);
    return RTNORM;
}
