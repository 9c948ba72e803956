// Environment variables. WINDIR, SystemRoot, SystemDrive and TEMP are there also where the system does not set them.
#pragma once
#include "KxWinTypes.h"
#include <string>
#include <string_view>

namespace KxPlat {

// "%NAME%" becomes the variable's value, and stays where there is none.
std::wstring ExpandEnvironment(std::wstring_view text);

}   // namespace KxPlat

extern "C" {
// The count of characters with the terminator, also when `size` is too small.
DWORD ExpandEnvironmentStringsW(LPCWSTR text, LPWSTR buffer, DWORD size);
}
