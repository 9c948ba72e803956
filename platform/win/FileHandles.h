// Files by handle. Names are in drive form or in the system's.
// What one handle does not share is refused to the others with 32, as far as they are programs of this system.
#pragma once
#include "KxWinTypes.h"

// clang-format off
struct _SECURITY_ATTRIBUTES { DWORD nLength; LPVOID lpSecurityDescriptor; BOOL bInheritHandle; };
typedef _SECURITY_ATTRIBUTES SECURITY_ATTRIBUTES, *LPSECURITY_ATTRIBUTES;
struct _OVERLAPPED { ULONG_PTR Internal, InternalHigh; DWORD Offset, OffsetHigh; HANDLE hEvent; };
typedef _OVERLAPPED OVERLAPPED, *LPOVERLAPPED;

#define GENERIC_READ 0x80000000U
#define GENERIC_WRITE 0x40000000U
#define FILE_SHARE_READ 0x00000001U
#define FILE_SHARE_WRITE 0x00000002U
#define FILE_SHARE_DELETE 0x00000004U
#define CREATE_NEW 1
#define CREATE_ALWAYS 2
#define OPEN_EXISTING 3
#define OPEN_ALWAYS 4
#define TRUNCATE_EXISTING 5
#define FILE_BEGIN 0
#define FILE_CURRENT 1
#define FILE_END 2
#define INVALID_SET_FILE_POINTER 0xFFFFFFFFU
#define INVALID_FILE_SIZE 0xFFFFFFFFU
#define LOCKFILE_FAIL_IMMEDIATELY 0x00000001U
#define LOCKFILE_EXCLUSIVE_LOCK 0x00000002U
// clang-format on

extern "C" {
// INVALID_HANDLE_VALUE on failure. A file that was there leaves the last error 183 with CREATE_ALWAYS and OPEN_ALWAYS.
HANDLE CreateFileW(LPCWSTR name, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES security, DWORD disposition,
                   DWORD attributes, HANDLE templateFile);
BOOL ReadFile(HANDLE file, LPVOID buffer, DWORD count, LPDWORD done, LPOVERLAPPED overlapped);
BOOL WriteFile(HANDLE file, LPCVOID bytes, DWORD count, LPDWORD done, LPOVERLAPPED overlapped);
// The low half of the new place; INVALID_SET_FILE_POINTER with a last error on failure.
DWORD SetFilePointer(HANDLE file, LONG low, LONG* high, DWORD origin);
DWORD GetFileSize(HANDLE file, LPDWORD high);
// A region may lie behind the file's end. Without LOCKFILE_FAIL_IMMEDIATELY the call waits.
BOOL LockFileEx(HANDLE file, DWORD flags, DWORD reserved, DWORD low, DWORD high, LPOVERLAPPED start);
BOOL UnlockFileEx(HANDLE file, DWORD reserved, DWORD low, DWORD high, LPOVERLAPPED start);
}
