// Other processes and drives, as far as their files are concerned.
#pragma once
#include "KxWinTypes.h"

extern "C" {
HANDLE GetCurrentProcess();
DWORD GetCurrentProcessId();
// Null with 87 when there is no such process. The handle keeps knowing the process's file after its end.
HANDLE OpenProcess(DWORD access, BOOL inherit, DWORD processId);
BOOL CloseHandle(HANDLE handle);
// The device form, "\Device\HarddiskVolume2\dir\name"; 0 with 122 when `size` is too small.
DWORD GetProcessImageFileNameW(HANDLE process, LPWSTR buffer, DWORD size);
BOOL IsWow64Process(HANDLE process, BOOL* answer);

// "C:\", "Z:\", ... each terminated; answers the characters without the last zero, or the size needed.
DWORD GetLogicalDriveStringsW(DWORD size, LPWSTR buffer);
DWORD GetLogicalDrives();
// The device of a drive ("C:"), followed by two zeros; 0 with 2 for an unknown one, with 122 when `size` is too small.
DWORD QueryDosDeviceW(LPCWSTR device, LPWSTR buffer, DWORD size);
}
