// The target's basic types and the export marker, included by every header of the framework.
#pragma once

#ifdef _WIN32

#include <windows.h>
#include <tchar.h>

#else

#include <cstdint>

using BOOL = int;
using BYTE = unsigned char;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned int;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LPWSTR = wchar_t*;
using LPCWSTR = const wchar_t*;
using LPTSTR = wchar_t*;
using LPCTSTR = const wchar_t*;
using TCHAR = wchar_t;

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif
#ifndef _T
#define _T(text) L##text
#endif

#endif

/// Marks what the framework's DLL exports. Its users need no marker: the linker's import library does.
#if defined(_WIN32) && defined(AFX_BUILDING_FRAMEWORK)
#define AFX_PUBLIC __declspec(dllexport)
#else
#define AFX_PUBLIC
#endif
