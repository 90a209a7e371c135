// Basic types of the host interface.
#pragma once

#include <cstddef>
#include <cstdint>

typedef wchar_t ACHAR;
#define ACRX_T(text) L##text
#define _ACRX_T(text) ACRX_T(text)

namespace Adesk {

typedef short Int16;
typedef unsigned short UInt16;
typedef int Int32;
typedef unsigned int UInt32;
typedef long long Int64;
typedef unsigned long long UInt64;
typedef std::intptr_t LongPtr;
/// An object id or an entity name in integer form.
typedef LongPtr IntDbId;
/// A count or an index of a container.
typedef int IntPtr32;
typedef bool Boolean;

constexpr Boolean kFalse = false;
constexpr Boolean kTrue = true;

}  // namespace Adesk
