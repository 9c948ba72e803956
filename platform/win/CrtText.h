// The text functions of the Microsoft C runtime that the standard library lacks.
#pragma once
#include "KxWinTypes.h"
#include <cstdarg>
#include <cwchar>

extern "C" {
int _wcsicmp(const wchar_t* a, const wchar_t* b);
int _wcsnicmp(const wchar_t* a, const wchar_t* b, size_t count);
wchar_t* _wcsupr(wchar_t* text);
wchar_t* _wcslwr(wchar_t* text);
wchar_t* _wcsdup(const wchar_t* text);   // freed with free()

// The number at the start of a text, 0 without one; an exponent may be written with "d"; whole numbers stop at their
// limits.
int _wtoi(const wchar_t* text);
LONG _wtol(const wchar_t* text);
LONGLONG _wtoi64(const wchar_t* text);
double _wtof(const wchar_t* text);
wchar_t* _itow(int value, wchar_t* buffer, int radix);

// At most `count` characters, terminated only where there is room; -1 when the text is longer. Formats as
// KxPlat::FormatV.
int _snwprintf(wchar_t* buffer, size_t count, const wchar_t* format, ...);
int _vsnwprintf(wchar_t* buffer, size_t count, const wchar_t* format, va_list arguments);

int lstrlenW(LPCWSTR text);   // 0 for null
}
