// Formatting by the rules of the Microsoft wide printf, the only formatter of the platform.
// %s %ls %ws take a wide text, %S %hs a narrow one in the ANSI code page, null prints "(null)"; %c is wide, %C narrow.
// %ld, %lx, %Ld take a `long` (64 bits here: cast a LONG or DWORD), %I64d and %lld 64 bits, %Id and %zd the size of a
// pointer. Reals are rounded half away from zero, exponents have three digits, infinities read "1.#INF".
#pragma once
#include <cstdarg>
#include <string>

namespace KxPlat {

std::wstring FormatV(const wchar_t* format, va_list arguments);
std::wstring Format(const wchar_t* format, ...);

}   // namespace KxPlat
