// The names in a folder that match "*" and "?", in the order of their names without regard to case.
#pragma once
#include "KxWinTypes.h"

// clang-format off
struct _WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime, ftLastAccessTime, ftLastWriteTime;
    DWORD nFileSizeHigh, nFileSizeLow;
    DWORD dwReserved0, dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];   // always empty
};
typedef _WIN32_FIND_DATAW WIN32_FIND_DATAW, *LPWIN32_FIND_DATAW;
#define FILE_ATTRIBUTE_REPARSE_POINT 0x00000400
// clang-format on

extern "C" {
// INVALID_HANDLE_VALUE with 2 when nothing matches, 3 when there is no such folder. "*.*" matches every name.
HANDLE FindFirstFileW(LPCWSTR pattern, LPWIN32_FIND_DATAW data);
BOOL FindNextFileW(HANDLE search, LPWIN32_FIND_DATAW data);   // FALSE with 18 at the end
BOOL FindClose(HANDLE search);
}
