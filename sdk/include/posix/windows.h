#pragma once

// Stands in for the system's windows.h where there is none, so that plug-in
// sources compile unchanged. Holds only the types, constants and functions that
// they use outside their dialogs. This folder is on the include path of systems
// without a windows.h only; it can never hide the real one.

#include <cstdint>

#include "../coreexp.h"

// The system's fixed sizes: long is 32 bits there, whatever it is here.
using BOOL = int;
using INT = int;
using UINT = unsigned int;
using BYTE = unsigned char;
using WORD = std::uint16_t;
using USHORT = std::uint16_t;
using DWORD = std::uint32_t;
using LONG = std::int32_t;
using ULONG = std::uint32_t;
using ULONGLONG = std::uint64_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using ULONG_PTR = std::uintptr_t;
using DWORD_PTR = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;

using TCHAR = char;
using LPSTR = char*;
using LPCSTR = const char*;
using LPTSTR = char*;
using LPCTSTR = const char*;
using LPVOID = void*;
using COLORREF = DWORD;

using HWND = struct HWND__*;
using HINSTANCE = struct HINSTANCE__*;
using HMODULE = HINSTANCE;

#define WINAPI
#define CALLBACK
#define APIENTRY

#ifndef TRUE
#define TRUE 1
#define FALSE 0
#endif
#ifndef _T
#define _T(text) text
#define TEXT(text) text
#endif

#define MAX_PATH 260
#define DLL_PROCESS_ATTACH 1
#define DLL_PROCESS_DETACH 0

constexpr BYTE GetRValue(COLORREF colour)
{
    return static_cast<BYTE>(colour);
}
constexpr BYTE GetGValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 8);
}
constexpr BYTE GetBValue(COLORREF colour)
{
    return static_cast<BYTE>(colour >> 16);
}
constexpr COLORREF RGB(int red, int green, int blue)
{
    return static_cast<COLORREF>((red & 255) | (green & 255) << 8 | (blue & 255) << 16);
}

// Copies string `id` of the module's string table into `buffer` of `size`
// characters, cut to fit and ended by a null. Answers the number of characters
// copied; 0 when the module or the string isn't known.
//
// Modules have no resource section here. A module with strings exports
// `extern "C" const char* ModuleString(unsigned int id)`, null for no string.
CoreExport int LoadString(HINSTANCE module, UINT id, LPSTR buffer, int size);

// Writes `text` to whoever listens in the place of a debugger.
CoreExport void OutputDebugString(LPCSTR text);

// There are no windows: always null.
CoreExport HWND GetActiveWindow();
