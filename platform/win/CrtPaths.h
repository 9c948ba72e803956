// The path and folder functions of the Microsoft C runtime, and the full name of a path.
#pragma once
#include "KxWinTypes.h"

extern "C" {
// Any part may be null. The buffers hold _MAX_DRIVE, _MAX_DIR, _MAX_FNAME and _MAX_EXT characters; longer parts are
// cut.
void _wsplitpath(const wchar_t* path, wchar_t* drive, wchar_t* folder, wchar_t* name, wchar_t* extension);
// `path` holds _MAX_PATH characters.
void _wmakepath(wchar_t* path, const wchar_t* drive, const wchar_t* folder, const wchar_t* name,
                const wchar_t* extension);

// Null and ERANGE when `size` characters are not enough. A null buffer is allocated with malloc.
wchar_t* _wgetcwd(wchar_t* buffer, int size);
// 0, or -1 with errno.
int _wchdir(const wchar_t* path);
int _wmkdir(const wchar_t* path);
int _wrmdir(const wchar_t* path);
int _waccess(const wchar_t* path, int mode);
int _wremove(const wchar_t* path);
int _wunlink(const wchar_t* path);
int _wrename(const wchar_t* from, const wchar_t* to);

// By text alone, the file need not exist. Answers the length, or the size needed when `size` is too small, 0 for an
// empty path.
DWORD GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* filePart);
}
