// What is known of other processes.
#pragma once
#include "KxExport.h"

namespace KxMfcEx {

// The program of a process as "C:\dir\name.exe"; `out` holds MAX_PATH characters. 1 or 0; `out` is empty when the
// process is unknown.
KXARX_API int GetProcessFullPath(DWORD processId, wchar_t* out);

// From the device form "\Device\HarddiskVolume2\dir\name" to "D:\dir\name". 0, and `out` a copy, when no drive has that
// device.
KXARX_API int DosPathToNtPath(const wchar_t* devicePath, wchar_t* out);

// 1 for a 32-bit process on a 64-bit system; a 64-bit process gets 0 there.
KXARX_API int IsWin64();

}   // namespace KxMfcEx
