#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "acutmem.h"

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
