// Time, folders and debugger output.
#pragma once
#include "KxWinTypes.h"

extern "C" {
void Sleep(DWORD milliseconds);
DWORD GetTickCount();
DWORD GetCurrentThreadId();
void GetLocalTime(LPSYSTEMTIME time);
// The folder for temporary files, ending in a backslash. Answers its length, or the size needed when `size` is too
// small.
DWORD GetTempPathW(DWORD size, LPWSTR buffer);
BOOL SetCurrentDirectoryW(LPCWSTR path);
DWORD GetCurrentDirectoryW(DWORD size, LPWSTR buffer);
DWORD GetFileAttributesW(LPCWSTR file);
BOOL DeleteFileW(LPCWSTR file);
// Goes to the user's viewer (kxcad --debug-output), without one to standard error. KX_DEBUG_OUTPUT names the socket of
// another viewer, which alone gets it then; "none" drops it.
void OutputDebugStringW(LPCWSTR text);
}
