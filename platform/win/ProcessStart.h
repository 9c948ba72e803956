// Starts programs and waits for them.
#pragma once
#include "KxWinTypes.h"

// clang-format off
struct _STARTUPINFOW {
    DWORD cb;
    LPWSTR lpReserved, lpDesktop, lpTitle;
    DWORD dwX, dwY, dwXSize, dwYSize, dwXCountChars, dwYCountChars, dwFillAttribute, dwFlags;
    WORD wShowWindow, cbReserved2;
    LPBYTE lpReserved2;
    HANDLE hStdInput, hStdOutput, hStdError;
};
typedef _STARTUPINFOW STARTUPINFOW, *LPSTARTUPINFOW;
struct _PROCESS_INFORMATION { HANDLE hProcess, hThread; DWORD dwProcessId, dwThreadId; };
typedef _PROCESS_INFORMATION PROCESS_INFORMATION, *LPPROCESS_INFORMATION;
#define STARTF_USESHOWWINDOW 0x00000001U
// clang-format on

struct _SECURITY_ATTRIBUTES;

extern "C" {
// Without a program its name is the first word of the command line, which the call leaves as it was; a name without
// a folder is also looked for beside this program. The program gets
// the words of the command line as Windows parts them; a line that begins with a blank has an empty first word, for
// which it gets its own name. Last error 2 or 3 when there is no such file, 193 when it is no program.
BOOL CreateProcessW(LPCWSTR program, LPWSTR commandLine, const _SECURITY_ATTRIBUTES* process,
                    const _SECURITY_ATTRIBUTES* thread, BOOL inherit, DWORD flags, LPVOID environment, LPCWSTR folder,
                    LPSTARTUPINFOW start, LPPROCESS_INFORMATION info);
// WAIT_OBJECT_0 once a process has ended, WAIT_TIMEOUT while it runs, WAIT_FAILED for what cannot be waited for.
DWORD WaitForSingleObject(HANDLE handle, DWORD milliseconds);
// STILL_ACTIVE while it runs; 0xC0000000 and the signal when one ended it.
BOOL GetExitCodeProcess(HANDLE process, LPDWORD code);
BOOL TerminateProcess(HANDLE process, UINT code);
}
