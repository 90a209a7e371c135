// printf formatting into wide text, with the rules of Windows' wide functions on every platform.
#pragma once

#include <cstdarg>
#include <string>

namespace framework {

/// Flags, widths, precisions, `*`, the sizes h l ll w z t I I32 I64 and the conversions d i u o x X e E f F g G a A c C
/// s S p %. %s and %c are wide (%hs, %S, %hc, %C single-byte in the system's code page); a null text prints "(null)".
/// An unknown conversion is copied as it stands and takes no argument.
std::wstring wide_format(const wchar_t* format, va_list arguments);

}  // namespace framework
