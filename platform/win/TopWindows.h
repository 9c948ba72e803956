// Top-level windows of all programs of this user, as each publishes them, and messages to them.
#pragma once
#include "KxWinTypes.h"

// clang-format off
#define ERROR_INVALID_INDEX_VALUE 1413U
// clang-format on

extern "C" {
// Those of each process together; TRUE when no callback answered FALSE.
BOOL EnumWindows(WNDENUMPROC callback, LPARAM parameter);
BOOL IsWindow(HWND window);
// Answers the length of what fits. A window that does not respond still shows its title.
int GetWindowTextW(HWND window, LPWSTR buffer, int size);
int GetWindowTextLengthW(HWND window);
int GetClassNameW(HWND window, LPWSTR buffer, int size);
// GWL_STYLE and GWL_EXSTYLE
LONG GetWindowLongW(HWND window, int index);
// GCL_STYLE and GCL_HMODULE, whose number says nothing to other processes
DWORD GetClassLongW(HWND window, int index);
ULONG_PTR GetClassLongPtrW(HWND window, int index);
HWND GetParent(HWND window);   // the owner of a top-level window
// The thread's id; `processId` stays for a window that is not there.
DWORD GetWindowThreadProcessId(HWND window, LPDWORD processId);

// What the window's process answers once it has dealt with the message; WM_COPYDATA takes its bytes along. 0 with 1400
// for a window that is not there, with 1460 for one that does not answer within the time (SendMessageW: 5 seconds, or
// KX_SEND_TIMEOUT milliseconds).
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT SendMessageTimeoutW(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT flags, UINT milliseconds,
                            DWORD_PTR* result);
}
