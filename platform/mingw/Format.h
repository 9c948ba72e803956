// Formatting by the C runtime's own wide printf.
#pragma once
#include <cstdarg>
#include <string>

namespace KxPlat {

std::wstring FormatV(const wchar_t* format, va_list arguments);

}   // namespace KxPlat
