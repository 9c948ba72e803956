// Version resources, of Windows program files and of our own programs.
#pragma once
#include "KxWinTypes.h"

extern "C" {
// The size of the block, 0 with 2 for a missing file or 1812 for a file without a (sound) version resource.
DWORD GetFileVersionInfoSizeW(LPCWSTR file, LPDWORD handle);
BOOL GetFileVersionInfoW(LPCWSTR file, DWORD handle, DWORD size, LPVOID block);
// `length` counts characters of a text with its zero, else bytes. FALSE with 1813, pointer and length untouched save
// that the length becomes 0, when the path is unknown.
BOOL VerQueryValueW(LPCVOID block, LPCWSTR path, LPVOID* value, PUINT length);
}
