// The Windows types and calls, from the system's own headers.
#pragma once
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#include <direct.h>
#include <io.h>
#include <mbctype.h>
#include <mbstring.h>
#include <psapi.h>
#include <winver.h>

// Names that the standard library uses, too.
#undef _M1
#undef _M2

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>

#define KX_DLLEXPORT __declspec(dllexport)

// The compiler's own printf reads a wide %s as a narrow text; these are the C runtime's, which modules mean.
int KxRuntime_snwprintf(wchar_t* buffer, size_t count, const wchar_t* format, ...);
int KxRuntime_vsnwprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments);
#define _snwprintf KxRuntime_snwprintf
#define _vsnwprintf KxRuntime_vsnwprintf
