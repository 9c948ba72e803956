// Environment variables. WINDIR, SystemRoot, SystemDrive and TEMP are there also where the system does not set them.
#pragma once
#include "KxWinTypes.h"
#include <string>
#include <string_view>

// clang-format off
#define ERROR_ENVVAR_NOT_FOUND 203U
// clang-format on

namespace KxPlat {

// "%NAME%" becomes the variable's value, and stays where there is none.
std::wstring ExpandEnvironment(std::wstring_view text);

}   // namespace KxPlat

extern "C" {
// The count of characters with the terminator, also when `size` is too small.
DWORD ExpandEnvironmentStringsW(LPCWSTR text, LPWSTR buffer, DWORD size);
// The length, or the size needed when `size` is too small; 0 with 203 when there is no such variable.
DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size);
// For this process and those that it starts from now on. A null value removes the variable.
BOOL SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value);
}
