// Profile (INI) files. A bare name lies in C:\windows, as on Windows; names match without regard to case, the first one
// counts. A file is UTF-16 or UTF-8 by its mark, else in the ANSI code page. A rewritten file keeps its encoding and
// its other lines.
#pragma once
#include "KxWinTypes.h"

extern "C" {
// A null key lists the section's keys, a null section the sections, each terminated, with one more zero behind the
// last. Answers the characters copied without the terminator; a cut list is answered as size - 2.
DWORD GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultText, LPWSTR buffer, DWORD size,
                               LPCWSTR file);
UINT GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultValue, LPCWSTR file);
// "key=value" lines without comments.
DWORD GetPrivateProfileSectionW(LPCWSTR section, LPWSTR buffer, DWORD size, LPCWSTR file);
DWORD GetPrivateProfileSectionNamesW(LPWSTR buffer, DWORD size, LPCWSTR file);
// A null value deletes the key, a null key the section.
BOOL WritePrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR value, LPCWSTR file);
}
