// Memory that passes between the host and modules.
#pragma once

#include <cstddef>

#include "adesk.h"

/// As malloc, calloc and free. Null when memory is out.
void* acad_malloc(size_t size);
void* acad_calloc(size_t count, size_t size);
void acad_free(void* memory);

/// A copy of a text in host memory (null for null).
ACHAR* acad__strdup(const ACHAR* text);

/// Releases a text that the host allocated and clears the pointer.
void acutDelString(ACHAR*& text);
