// Program modules: shared objects of this system under Windows' calls.
// A module's `DllMain(handle, reason, nullptr)` runs after loading and before unloading; answering 0 to the first
// refuses the load.
#pragma once
#include "KxWinTypes.h"

extern "C" {
// A name without folder is looked for among the loaded modules, beside the program, in the current folder and along
// PATH; a last name without a dot gets ".dll", and one dot at the end stands for no extension. Null on failure: 126 not
// found, 193 no module, 127 something it needs is missing, 1114 refused by its DllMain.
HMODULE LoadLibraryW(LPCWSTR file);
// FALSE with 126 for what is no loaded module.
BOOL FreeLibrary(HMODULE module);
FARPROC GetProcAddress(HMODULE module, LPCSTR name);
// The program itself for null. "kernel32", "user32", "psapi" and "version" are always there.
HMODULE GetModuleHandleW(LPCWSTR name);
// The file in drive form, the program's for null. Cut, terminated and 122 when `size` is too small; 0 for an unknown
// handle.
DWORD GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);
}
