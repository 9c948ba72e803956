// Conversion, testing and formatting of texts.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

// Between the ANSI code page and wide texts. `out` is a new terminated array, which the caller frees with delete[].
// Both answer the count of its elements with the terminator; 0 and a null `out` for a null text.
KXARX_API int Str_MultiByteToWideChar(const char* text, wchar_t*& out);
KXARX_API int Str_WideCharToMultiByte(const wchar_t* text, char*& out);

// 1 when `text` is a number of radix 2, 8, 10 or 16: a sign, digits of either case, at most one point. A lone sign or
// point counts.
KXARX_API int Str_IsNumString(const wchar_t* text, int radix);

KXARX_API CString Str_Format(const wchar_t* format, ...);

}   // namespace KxMfcEx
